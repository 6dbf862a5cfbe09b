package com.olvane.kep.olvane.defs.outline;

/** How an accounts member is balanced over time. */
public final class TimeBalance extends CodedValue {
  /** Not balanced */
  public static final short NONE = 0;

  /** Creates the code 0. */
  public TimeBalance() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public TimeBalance(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case NONE:
        return "not balanced";
      default:
        return null;
    }
  }
}
