package com.olvane.kep.olvane.defs.outline;

/** The type of an outline. */
public final class OutlineType extends CodedValue {
  /** Derived for a currency database; a code of the embedded engine */
  public static final short CURRENCY = 1;

  /** Creates the code 0. */
  public OutlineType() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public OutlineType(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case CURRENCY:
        return "derived for a currency database";
      default:
        return null;
    }
  }
}
