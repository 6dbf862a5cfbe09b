package com.olvane.kep.olvane.outline;

/** Which period of a time span a value is taken from. */
public enum TimeBalance implements Code {
  /** Not balanced. */
  NONE(0, "not balanced"),
  /** The first period. */
  FIRST(1, "the first period"),
  /** The last period. */
  LAST(2, "the last period"),
  /** The average of the periods. */
  AVERAGE(3, "the average of the periods"),
  /** A code that has no name here; the member tells it. */
  OTHER(-1, "another code");

  private final Meaning meaning;

  TimeBalance(int code, String words) {
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
  public static TimeBalance of(short code) {
    return Code.find(values(), code, OTHER);
  }
}
