package com.olvane.kep.olvane.outline;

/** A number that an outline keeps, with what it means in words. */
public interface Code {
  /** A number and its words, which each constant is made of. */
  final class Meaning {
    private final short code;
    private final String words;

    Meaning(int code, String words) {
      this.code = (short) code;
      this.words = words;
    }
  }

  /** {@return the number and the words together} */
  Meaning meaning();

  /** {@return the number as the outline keeps it} */
  default short code() {
    return meaning().code;
  }

  /** {@return what it means, as a program would show it} */
  default String words() {
    return meaning().words;
  }

  /**
   * Finds the constant of a number.
   *
   * @param <C> the kind of code
   * @param constants the constants
   * @param code the number
   * @param other what stands for all other numbers
   * @return the constant, or {@code other}
   */
  static <C extends Code> C find(C[] constants, short code, C other) {
    for (C constant : constants) {
      if (constant.code() == code) {
        return constant;
      }
    }
    return other;
  }
}
