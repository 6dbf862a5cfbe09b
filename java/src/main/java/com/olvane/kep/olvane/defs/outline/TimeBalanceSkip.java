package com.olvane.kep.olvane.defs.outline;

/** Which values the time balance of an accounts member leaves out. */
public final class TimeBalanceSkip extends CodedValue {
  /** Nothing is skipped */
  public static final short NONE = 0;

  /** Creates the code 0. */
  public TimeBalanceSkip() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public TimeBalanceSkip(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case NONE:
        return "nothing is skipped";
      default:
        return null;
    }
  }
}
