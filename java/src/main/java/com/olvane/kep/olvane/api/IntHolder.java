package com.olvane.kep.olvane.api;

/** Receives one number from a native method. */
public final class IntHolder {
  private int value;

  /** Creates a holder of 0. */
  public IntHolder() {}

  /** {@return the number} */
  public int getValue() {
    return value;
  }

  /**
   * Sets the number.
   *
   * @param value the number
   */
  public void setValue(int value) {
    this.value = value;
  }

  @Override
  public String toString() {
    return Integer.toString(value);
  }
}
