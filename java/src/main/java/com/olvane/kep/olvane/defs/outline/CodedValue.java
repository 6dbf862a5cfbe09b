package com.olvane.kep.olvane.defs.outline;

/**
 * A code of the outline API, carried as a {@code short}. Codes pass between the outline and Java
 * unchanged; a subclass names the ones whose meaning the editor relies on and accepts every other.
 */
public abstract class CodedValue {
  private short value;

  /** Creates the code 0. */
  protected CodedValue() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  protected CodedValue(short value) {
    this.value = value;
  }

  /**
   * Returns the code.
   *
   * @return the code
   */
  public final short getValue() {
    return value;
  }

  /**
   * Sets the code.
   *
   * @param value the code
   */
  public final void setValue(short value) {
    this.value = value;
  }

  /**
   * Names what the present code means.
   *
   * @return the meaning, or null for a code that this class does not name
   */
  public String meaning() {
    return null;
  }

  @Override
  public final boolean equals(Object other) {
    return other != null && other.getClass() == getClass() && ((CodedValue) other).value == value;
  }

  @Override
  public final int hashCode() {
    return 31 * getClass().hashCode() + value;
  }

  @Override
  public final String toString() {
    String meaning = meaning();
    return getClass().getSimpleName() + " " + value + (meaning == null ? "" : " (" + meaning + ")");
  }
}
