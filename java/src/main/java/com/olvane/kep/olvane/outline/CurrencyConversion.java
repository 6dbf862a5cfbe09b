package com.olvane.kep.olvane.outline;

/** How the values of a member are converted between currencies. */
public enum CurrencyConversion implements Code {
  /** No conversion of its own. */
  NONE(0, "no conversion of its own"),
  /** By its currency category. */
  CATEGORY(1, "by its currency category"),
  /** Never converted. */
  NEVER(2, "never converted"),
  /** A code that has no name here; the member tells it. */
  OTHER(-1, "another code");

  private final Meaning meaning;

  CurrencyConversion(int code, String words) {
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
  public static CurrencyConversion of(short code) {
    return Code.find(values(), code, OTHER);
  }
}
