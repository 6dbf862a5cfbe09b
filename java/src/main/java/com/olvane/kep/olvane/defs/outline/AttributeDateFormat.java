package com.olvane.kep.olvane.defs.outline;

/** The format in which attribute members name dates. */
public final class AttributeDateFormat extends CodedValue {
  /** Creates the code 0. */
  public AttributeDateFormat() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public AttributeDateFormat(short value) {
    super(value);
  }
}
