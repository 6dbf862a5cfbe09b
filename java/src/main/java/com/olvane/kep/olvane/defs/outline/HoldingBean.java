package com.olvane.kep.olvane.defs.outline;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/**
 * A bean whose setters refuse values that an outline cannot keep, by throwing or, while
 * exceptions are held, by collecting.
 */
public abstract class HoldingBean {
  private boolean holdExceptions;
  private List<IllegalArgumentException> heldExceptions;

  /** Creates a bean that throws. */
  HoldingBean() {}

  /**
   * Begins or ends holding exceptions. Beginning forgets what was held before.
   *
   * @param hold true to collect the exceptions of the setters, false to let them be thrown again
   */
  public void setHoldExceptions(boolean hold) {
    holdExceptions = hold;
    if (hold) {
      heldExceptions = null;
    }
  }

  /**
   * Returns the exceptions collected while they were last held.
   *
   * @return an unmodifiable list, empty if every value was acceptable
   */
  public List<IllegalArgumentException> getHeldExceptions() {
    return heldExceptions == null
        ? Collections.<IllegalArgumentException>emptyList()
        : Collections.unmodifiableList(heldExceptions);
  }

  final void checkLength(String text, int maxBytes, String what) {
    // Most texts are short enough whatever characters they hold.
    if (text == null || text.length() * 3L <= maxBytes) {
      return;
    }
    int bytes = encodedLength(text);
    if (bytes > maxBytes) {
      refuse(what + " takes " + bytes + " bytes, at most " + maxBytes + " fit: " + text);
    }
  }

  final void checkNotNegative(long value, String what) {
    if (value < 0) {
      refuse(what + " is negative: " + value);
    }
  }

  private void refuse(String message) {
    IllegalArgumentException exception = new IllegalArgumentException(message);
    if (!holdExceptions) {
      throw exception;
    }
    if (heldExceptions == null) {
      heldExceptions = new ArrayList<>();
    }
    heldExceptions.add(exception);
  }

  /**
   * Returns the number of bytes that a text takes in an outline, which keeps modified UTF-8: a
   * supplementary character takes six.
   *
   * @param text the text
   * @return its length in bytes
   */
  public static int encodedLength(String text) {
    int bytes = 0;
    for (int i = 0; i < text.length(); i++) {
      char c = text.charAt(i);
      bytes += c >= 0x0800 ? 3 : c >= 0x0080 || c == 0 ? 2 : 1;
    }
    return bytes;
  }
}
