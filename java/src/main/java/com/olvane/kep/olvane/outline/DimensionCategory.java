package com.olvane.kep.olvane.outline;

/** What a dimension stands for. */
public enum DimensionCategory implements Code {
  /** No category. */
  NONE(0, "no category"),
  /** Accounts. */
  ACCOUNTS(1, "accounts"),
  /** Time. */
  TIME(2, "time"),
  /** Country. */
  COUNTRY(3, "country"),
  /** Attribute. */
  ATTRIBUTE(6, "attribute"),
  /** A code that has no name here; the member tells it. */
  OTHER(-1, "another code");

  private final Meaning meaning;

  DimensionCategory(int code, String words) {
    meaning = new Meaning(code, words);
  }

  @Override
  public Meaning meaning() {
    return meaning;
  }

  /**
   * Finds the constant of a code.
   *
   * @param code the code
   * @return the constant, {@link #OTHER} where none has this code
   */
  public static DimensionCategory of(short code) {
    return Code.find(values(), code, OTHER);
  }
}
