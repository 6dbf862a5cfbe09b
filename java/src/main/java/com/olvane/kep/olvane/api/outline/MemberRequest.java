package com.olvane.kep.olvane.api.outline;

import com.olvane.kep.olvane.defs.outline.MemberReference;

/** One member that a block request asks about, by handle or by name. */
public final class MemberRequest implements MemberReference {
  private final int handle;
  private final String name;

  /**
   * Asks about a member by its handle.
   *
   * @param handle the handle of the member
   */
  public MemberRequest(int handle) {
    this.handle = handle;
    this.name = null;
  }

  /**
   * Asks about a member by its name.
   *
   * @param name the name of the member
   */
  public MemberRequest(String name) {
    this.handle = 0;
    this.name = name;
  }

  @Override
  public int getHandle() {
    return handle;
  }

  @Override
  public String getName() {
    return name;
  }

  @Override
  public String toString() {
    return handle != 0 ? "#" + Integer.toUnsignedString(handle) : name;
  }
}
