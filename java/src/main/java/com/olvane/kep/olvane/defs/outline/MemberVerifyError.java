package com.olvane.kep.olvane.defs.outline;

import java.util.List;

/** The errors of one member, as a verification finds them. */
public final class MemberVerifyError implements VerifyFinding {
  private String name;
  private int handle;
  private long errorPortion;
  private long extendedPortion;

  /** Creates an empty object. */
  public MemberVerifyError() {}

  /** {@return the name of the member, or null if the member could not be read} */
  public String getName() {
    return name;
  }

  /**
   * Sets the name of the member, or null if the member could not be read.
   *
   * @param name the name
   */
  public void setName(String name) {
    this.name = name;
  }

  /** {@return the handle of the member, or 0} */
  public int getHandle() {
    return handle;
  }

  /**
   * Sets the handle of the member, or 0.
   *
   * @param handle the handle
   */
  public void setHandle(int handle) {
    this.handle = handle;
  }

  /** {@return the error bits} */
  public long getErrorPortion() {
    return errorPortion;
  }

  /**
   * Sets the error bits.
   *
   * @param errorPortion the error bits
   */
  public void setErrorPortion(long errorPortion) {
    this.errorPortion = errorPortion;
  }

  /** {@return the extended error bits} */
  public long getExtendedPortion() {
    return extendedPortion;
  }

  /**
   * Sets the extended error bits.
   *
   * @param extendedPortion the extended error bits
   */
  public void setExtendedPortion(long extendedPortion) {
    this.extendedPortion = extendedPortion;
  }

  @Override
  public List<String> getSentences() {
    return VerifyErrorText.ofMember(name, errorPortion, extendedPortion);
  }

  @Override
  public String toString() {
    return "MemberVerifyError[name=" + name + ", handle=" + handle
        + ", errorPortion=" + errorPortion
        + ", extendedPortion=" + extendedPortion + "]";
  }
}
