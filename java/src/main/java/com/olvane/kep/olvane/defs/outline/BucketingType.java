package com.olvane.kep.olvane.defs.outline;

/** How numeric attribute members bound their ranges. */
public final class BucketingType extends CodedValue {
  /** Creates the code 0. */
  public BucketingType() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public BucketingType(short value) {
    super(value);
  }
}
