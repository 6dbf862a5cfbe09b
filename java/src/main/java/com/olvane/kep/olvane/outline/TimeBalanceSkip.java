package com.olvane.kep.olvane.outline;

/** Which values a time balance passes over. */
public enum TimeBalanceSkip implements Code {
  /** Nothing is skipped. */
  NONE(0, "nothing is skipped"),
  /** Missing values. */
  MISSING(1, "missing values"),
  /** Zeros. */
  ZEROS(2, "zeros"),
  /** Missing values and zeros. */
  BOTH(3, "missing values and zeros"),
  /** A code that has no name here; the member tells it. */
  OTHER(-1, "another code");

  private final Meaning meaning;

  TimeBalanceSkip(int code, String words) {
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
  public static TimeBalanceSkip of(short code) {
    return Code.find(values(), code, OTHER);
  }
}
