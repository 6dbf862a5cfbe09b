package com.olvane.kep.olvane.outline;

/** How a member is consolidated into its parent. */
public enum Consolidation implements Code {
  /** Added (+). */
  ADD(0, "added (+)"),
  /** Subtracted (-). */
  SUBTRACT(1, "subtracted (-)"),
  /** Multiplied (*). */
  MULTIPLY(2, "multiplied (*)"),
  /** Divided (/). */
  DIVIDE(3, "divided (/)"),
  /** Percentage (%). */
  PERCENT(4, "percentage (%)"),
  /** Not consolidated (~). */
  NONE(5, "not consolidated (~)"),
  /** A code that has no name here; the member tells it. */
  OTHER(-1, "another code");

  private final Meaning meaning;

  Consolidation(int code, String words) {
    meaning = new Meaning(code, words);
  }

  @Override
  public Meaning meaning() {
    return meaning;
  }

  /** {@return the sign that stands for it, a question mark for {@link #OTHER}} */
  public char sign() {
    return this == OTHER ? '?' : "+-*/%~".charAt(ordinal());
  }

  /**
   * Finds the constant of a code.
   *
   * @param code the code
   * @return the constant, {@link #OTHER} where none has this code
   */
  public static Consolidation of(short code) {
    return Code.find(values(), code, OTHER);
  }
}
