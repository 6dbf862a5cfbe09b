package com.olvane.kep.olvane.defs.outline;

/** The storage type of a dimension. */
public final class DimensionStorageType extends CodedValue {
  /** The storage type of a new dimension */
  public static final short REGULAR = 1;

  /** Creates the code 0. */
  public DimensionStorageType() {}

  /**
   * Creates a given code.
   *
   * @param value the code
   */
  public DimensionStorageType(short value) {
    super(value);
  }

  @Override
  public String meaning() {
    switch (getValue()) {
      case REGULAR:
        return "the storage type of a new dimension";
      default:
        return null;
    }
  }
}
