package com.olvane.kep.olvane.defs.outline;

/** The operator with which a member is consolidated into its parent. */
public final class Consolidation extends CodedValue {
  /** The operator of a new member */
  public static final short DEFAULT = 0;

  /** The operator of attribute members */
  public static final short ATTRIBUTE = 5;

  /** Creates the code 0. */
  public Consolidation() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public Consolidation(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case DEFAULT:
        return "the operator of a new member";
      case ATTRIBUTE:
        return "the operator of attribute members";
      default:
        return null;
    }
  }
}
