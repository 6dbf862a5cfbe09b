package com.olvane.kep.olvane.outline;

/** A number that an outline keeps, with what it means in words. */
public interface Code {
  /** {@return the number as the outline keeps it} */
  short code();

  /** {@return what it means, as a program would show it} */
  String words();

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
