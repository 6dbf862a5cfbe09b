package com.olvane.kep.olvane.outline;

/** A number that an outline keeps, with what it means in words. */
public interface Code {
  /** {@return the number as the outline keeps it} */
  short code();

  /** {@return what it means, as a program would show it} */
  String words();
}
