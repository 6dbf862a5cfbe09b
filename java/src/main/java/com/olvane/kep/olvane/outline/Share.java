package com.olvane.kep.olvane.outline;

/** How the data of a member is stored. */
public enum Share implements Code {
  /** Stored in the member itself. */
  STORED(0, "stored in the member itself"),
  /** Shared: repeats another member. */
  SHARED(2, "shared: repeats another member"),
  /** Label only: a heading without data. */
  LABEL_ONLY(3, "label only: a heading without data"),
  /** Of an attribute member. */
  ATTRIBUTE(5, "of an attribute member"),
  /** A code that has no name here; the member tells it. */
  OTHER(-1, "another code");

  private final Meaning meaning;

  Share(int code, String words) {
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
  public static Share of(short code) {
    return Code.find(values(), code, OTHER);
  }
}
