package com.olvane.kep.olvane.defs.outline;

/** Names a member of an open outline, by handle or, with handle 0, by name. */
public interface MemberReference {
  /**
   * Returns the handle of the member.
   *
   * @return the handle, or 0 if the member is given by name
   */
  int getHandle();

  /**
   * Returns the name of the member.
   *
   * @return the name; may be null or empty if the handle is not 0
   */
  String getName();
}
