package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;

/**
 * A reference to a member that lasts over deleting and bringing back, unlike its handle. It is
 * resolved by the {@link EditContext}, on the work thread.
 */
final class Ref {
  /** The handle now; 0 while there is no such member. */
  int handle;

  private Ref(int handle) {
    this.handle = handle;
  }

  /** Refers to a member that is there. */
  static Ref to(Member member) {
    return new Ref(member.handle());
  }

  /** Refers to the member of a handle; null for 0. */
  static Ref toHandle(int handle) {
    return handle == 0 ? null : new Ref(handle);
  }

  /** Refers to a member that is still to be made. */
  static Ref toCome() {
    return new Ref(0);
  }
}
