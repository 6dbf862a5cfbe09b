package com.olvane.kep.olvane.defs.outline;

/** How the data of a member is stored. */
public final class Share extends CodedValue {
  /** Stored in the member itself */
  public static final short STORED = 0;

  /** Shared: the member repeats another one */
  public static final short SHARED = 2;

  /** Label only: a heading that holds no data; a code of the embedded engine */
  public static final short LABEL_ONLY = 3;

  /** The share option of attribute members */
  public static final short ATTRIBUTE = 5;

  /** Creates the code 0. */
  public Share() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public Share(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case STORED:
        return "stored in the member itself";
      case SHARED:
        return "shared";
      case LABEL_ONLY:
        return "label only";
      case ATTRIBUTE:
        return "the share option of attribute members";
      default:
        return null;
    }
  }
}
