package com.olvane.kep.olvane.defs.outline;

/** The data type of an attribute dimension or attribute member. */
public final class AttributeType extends CodedValue {
  /** The type of an attribute dimension for which none was given */
  public static final short DIMENSION_DEFAULT = 10;

  /** The type of a member of an attribute dimension */
  public static final short MEMBER = 255;

  /** Creates the code 0. */
  public AttributeType() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public AttributeType(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case DIMENSION_DEFAULT:
        return "the type of an attribute dimension for which none was given";
      case MEMBER:
        return "the type of a member of an attribute dimension";
      default:
        return null;
    }
  }
}
