package com.olvane.kep.olvane.defs.outline;

/** What a dimension stands for. */
public final class DimensionCategory extends CodedValue {
  /** No category */
  public static final short NONE = 0;

  /** Accounts dimension: its members carry variance, currency and time balance settings */
  public static final short ACCOUNTS = 1;

  /** Time dimension */
  public static final short TIME = 2;

  /** Country dimension: countries and their currencies; a code of the embedded engine */
  public static final short COUNTRY = 3;

  /** Attribute dimension */
  public static final short ATTRIBUTE = 6;

  /** Creates the code 0. */
  public DimensionCategory() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public DimensionCategory(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case NONE:
        return "no category";
      case ACCOUNTS:
        return "accounts dimension";
      case TIME:
        return "time dimension";
      case COUNTRY:
        return "country dimension";
      case ATTRIBUTE:
        return "attribute dimension";
      default:
        return null;
    }
  }
}
