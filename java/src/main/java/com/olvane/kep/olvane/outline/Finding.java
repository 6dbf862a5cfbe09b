package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.defs.outline.MemberVerifyError;
import com.olvane.kep.olvane.defs.outline.VerifyFinding;
import java.util.List;

/** What verification finds wrong with an outline or with one of its members. */
public final class Finding {
  private final int handle;
  private final String member;
  private final List<String> sentences;

  Finding(VerifyFinding found) {
    MemberVerifyError error = found instanceof MemberVerifyError ? (MemberVerifyError) found : null;
    handle = error == null ? 0 : error.getHandle();
    member = error == null || error.getName() == null ? "" : error.getName();
    sentences = found.getSentences();
  }

  /** {@return the handle of the member, 0 where it concerns the whole outline} */
  public int handle() {
    return handle;
  }

  /** {@return the name of the member, empty where it concerns the whole outline} */
  public String member() {
    return member;
  }

  /** {@return what is wrong, one sentence each; those of the embedded engine's errors} */
  public List<String> sentences() {
    return sentences;
  }

  @Override
  public String toString() {
    return String.join(" ", sentences);
  }
}
