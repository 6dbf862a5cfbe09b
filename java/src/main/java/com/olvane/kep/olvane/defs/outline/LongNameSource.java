package com.olvane.kep.olvane.defs.outline;

/** Which names the long name of an attribute member is built from. */
public final class LongNameSource extends CodedValue {
  /** Creates the code 0. */
  public LongNameSource() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public LongNameSource(short value) {
    super(value);
  }
}
