package com.olvane.kep.olvane.defs.outline;

/**
 * What stands between the parts of an attribute member's long name. The outline keeps one signed
 * byte of the code.
 */
public final class LongNameDelimiter extends CodedValue {
  /** Creates the code 0. */
  public LongNameDelimiter() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public LongNameDelimiter(short value) {
    super(value);
  }
}
