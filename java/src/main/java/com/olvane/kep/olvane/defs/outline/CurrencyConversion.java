package com.olvane.kep.olvane.defs.outline;

/** The currency conversion of a member. */
public final class CurrencyConversion extends CodedValue {
  /** No conversion of its own */
  public static final short NONE = 0;

  /** Creates the code 0. */
  public CurrencyConversion() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public CurrencyConversion(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case NONE:
        return "no conversion of its own";
      default:
        return null;
    }
  }
}
