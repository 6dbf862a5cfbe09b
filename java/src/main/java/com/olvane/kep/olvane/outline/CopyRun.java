package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.CopyRequest;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import java.util.ArrayList;
import java.util.List;

/**
 * A copy of a member with everything below it, made batch by batch. The outline is free between
 * them. It is either gone on with until it is finished or cancelled, which leaves nothing of it.
 */
public final class CopyRun {
  private final Access access;
  private final String source;
  private final CopyRequest request = new CopyRequest();
  private final int copy;
  private boolean cancelled;

  CopyRun(Access access, Member source, Place.Resolved place) {
    this.access = access;
    this.source = source.name();
    if (place.reference() == 0) {
      throw new IllegalArgumentException(
          "A copy cannot become the first dimension; copy it behind one and move it");
    }
    List<DefaultMember> made = new ArrayList<>();
    access.edit("copy", source.name(), (i, o) -> OutlineJni.copyMember(
        i, o, null, place.reference(), null, source.handle(), place.isBehind(), request, made));
    if (made.isEmpty()) {
      throw new OutlineException("copy", Status.REFUSED, source.name(), "");
    }
    copy = made.get(0).getHandle();
  }

  /** {@return whether everything has been copied} */
  public boolean isFinished() {
    return request.isFinished();
  }

  /** {@return the number of members copied so far} */
  public int copied() {
    return request.getCount();
  }

  /**
   * Copies some more members.
   *
   * @return whether there is more to copy
   * @throws OutlineException if a member cannot be copied; {@link #cancel} removes those that were
   */
  public boolean next() {
    requireNotCancelled();
    if (!request.isFinished()) {
      access.edit("copy what is below", source, (i, o) -> OutlineJni.copyContinue(i, o, request));
    }
    return !request.isFinished();
  }

  /**
   * Copies all that is left.
   *
   * @return the copy of the member
   * @throws OutlineException if a member cannot be copied; nothing is left of the copy then
   */
  public Member finish() {
    try {
      while (next()) {
        // Each turn copies a few members.
      }
    } catch (OutlineException e) {
      cancel();
      throw e;
    }
    return result();
  }

  /** {@return the copy of the member, as it is now} */
  public Member result() {
    requireNotCancelled();
    return Reading.again(access, source, copy, Details.NONE);
  }

  /** Removes what was copied. Cancelling again does nothing. */
  public void cancel() {
    if (!cancelled) {
      access.edit("remove the copy of", source, (i, o) -> OutlineJni.deleteMember(i, o, copy));
      cancelled = true;
    }
  }

  private void requireNotCancelled() {
    if (cancelled) {
      throw new IllegalStateException("The copy of " + source + " was cancelled");
    }
  }
}
