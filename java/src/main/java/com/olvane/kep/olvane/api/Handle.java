package com.olvane.kep.olvane.api;

/** Holds one opaque handle of the API, an unsigned 32-bit number. 0 means that there is none. */
public abstract class Handle {
  private int value;

  /** Creates a wrapper that holds no handle. */
  protected Handle() {}

  /**
   * Creates a wrapper for a handle.
   *
   * @param value the handle
   */
  protected Handle(int value) {
    this.value = value;
  }

  /**
   * Returns the handle.
   *
   * @return the handle, or 0 if there is none
   */
  public final int getValue() {
    return value;
  }

  /**
   * Replaces the handle.
   *
   * @param value the new handle, or 0 for none
   */
  public final void setValue(int value) {
    this.value = value;
  }

  /**
   * Tells whether there is a handle.
   *
   * @return true if the handle is not 0
   */
  public final boolean isSet() {
    return value != 0;
  }

  @Override
  public final String toString() {
    return getClass().getSimpleName() + " " + Integer.toUnsignedString(value);
  }
}
