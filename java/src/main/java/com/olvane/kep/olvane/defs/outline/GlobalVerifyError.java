package com.olvane.kep.olvane.defs.outline;

import java.util.List;

/** The errors of an outline as a whole, as a verification finds them. */
public final class GlobalVerifyError implements VerifyFinding {
  private long value;

  /** Creates an empty object. */
  public GlobalVerifyError() {}

  /** {@return the error bits} */
  public long getValue() {
    return value;
  }

  /**
   * Sets the error bits.
   *
   * @param value the error bits
   */
  public void setValue(long value) {
    this.value = value;
  }

  @Override
  public List<String> getSentences() {
    return VerifyErrorText.ofOutline(value);
  }

  @Override
  public String toString() {
    return "GlobalVerifyError[value=" + value + "]";
  }
}
