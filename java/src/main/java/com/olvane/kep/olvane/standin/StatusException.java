package com.olvane.kep.olvane.standin;

/** An action was refused or failed with a status of the API. */
public final class StatusException extends RuntimeException {
  private static final long serialVersionUID = 1L;

  /** The status; not 0. */
  private final int status;

  /**
   * Creates an exception.
   *
   * @param action what was attempted, such as "open the outline of Demo.World"
   * @param status the status, not 0
   * @param text what the status means
   */
  public StatusException(String action, int status, String text) {
    super("Cannot " + action + ": " + text + " (status " + status + ")");
    this.status = status;
  }

  /** {@return the status} */
  public int getStatus() {
    return status;
  }
}
