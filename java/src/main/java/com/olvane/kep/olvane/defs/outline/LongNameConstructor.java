package com.olvane.kep.olvane.defs.outline;

/** How the long names of attribute members are built. */
public final class LongNameConstructor extends CodedValue {
  /** Creates the code 0. */
  public LongNameConstructor() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public LongNameConstructor(short value) {
    super(value);
  }
}
