package com.olvane.kep.olvane.cli.demo;

/** An outline that was read back differs from what was written. */
final class DifferenceException extends RuntimeException {
  private static final long serialVersionUID = 1L;

  /**
   * Creates an exception.
   *
   * @param message what differs
   */
  DifferenceException(String message) {
    super(message);
  }
}
