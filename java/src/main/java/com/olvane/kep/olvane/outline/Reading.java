package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Stream;

/** A listing by the fast lane, one buffer after the other. */
final class Reading {
  private final Access access;
  private final String about;
  private final Details details;
  private final BulkCall call;
  private final RecordReader records = new RecordReader();
  private final long edits;
  private boolean done;
  private boolean closed;

  /**
   * Prepares a listing.
   *
   * @param about the name of the member that it is about, for messages
   * @param member the parent or the root
   * @param start one of {@code FROM_...}
   * @param next what it begins with
   */
  private Reading(
      Access access, String about, int operation, int member, int start, int next,
      Details details, int[] handles, String name) {
    this.access = access;
    this.about = about;
    this.details = details;
    call = new BulkCall(access, operation, details.aliasTables());
    call.put(OutlineBulk.DETAILS, details.bits());
    call.put(OutlineBulk.MEMBER, member);
    call.put(OutlineBulk.START, start);
    call.put(OutlineBulk.NEXT, next);
    if (handles != null) {
      for (int handle : handles) {
        call.number(handle);
      }
    }
    if (name != null) {
      call.text(name);
    }
    call.ready();
    edits = access.edits();
  }

  static Reading children(
      Access access, Member parent, int start, int next, Details details) {
    return new Reading(access, parent == null ? "" : parent.name(), OutlineBulk.READ_CHILDREN,
        parent == null ? 0 : parent.handle(), start, next, details, null, null);
  }

  static Reading subtree(Access access, Member root, Details details) {
    return new Reading(access, root.name(), OutlineBulk.READ_SUBTREE, root.handle(),
        OutlineBulk.FROM_FIRST, 0, details, null, null);
  }

  static Reading members(Access access, String about, int[] handles, Details details) {
    return new Reading(access, about, OutlineBulk.READ_MEMBERS, 0, OutlineBulk.FROM_FIRST, 0,
        details, handles, null);
  }

  /** The member of a name, or null. */
  static Member find(Access access, String name, Details details) {
    Reading reading = new Reading(access, name, OutlineBulk.FIND, 0, OutlineBulk.FROM_FIRST, 0,
        details, null, name);
    access.enter();
    try {
      reading.call.run();
      boolean found = reading.call.get(OutlineBulk.FAILED_FIELD) != OutlineBulk.FIELD_NAME;
      if (found) {
        reading.takeAnswer();
      }
      return found ? reading.next() : null;
    } finally {
      access.leave();
      reading.close();
    }
  }

  /** All members that come, and ends the listing. */
  List<Member> all() {
    return list(0);
  }

  /** The next members, at most {@code limit} (0: all), and ends the listing. */
  List<Member> list(int limit) {
    List<Member> members = new ArrayList<>(limit > 0 ? Math.min(limit, 1000) : 10);
    try {
      while (limit == 0 || members.size() < limit) {
        call.set(OutlineBulk.LIMIT, limit == 0 ? 0 : limit - members.size());
        if (!fill()) {
          break;
        }
        while (records.step()) {
          members.add(new Member(records, details));
        }
      }
      return members;
    } finally {
      close();
    }
  }

  /** The members as a stream, which ends the listing. */
  Stream<Member> stream() {
    return Streams.of(this::next).onClose(this::close);
  }

  /** Whether nothing follows what was read. */
  boolean wasLast() {
    return done;
  }

  /** The next member; null behind the last one, which ends the listing. */
  Member next() {
    if (records.left() == 0 && !fill()) {
      close();
      return null;
    }
    records.step();
    return new Member(records, details);
  }

  /** Reads a buffer of members; false when there are no more. */
  private boolean fill() {
    if (done || closed) {
      return false;
    }
    access.enter();
    try {
      access.requireUnchanged(edits);
      call.run();
      takeAnswer();
    } finally {
      access.leave();
    }
    return records.left() > 0;
  }

  private void takeAnswer() {
    if (call.status() != Status.OK) {
      throw new OutlineException("read members", call.status(), about, call.field());
    }
    done = call.done();
    call.takeInto(records);
  }

  /** Ends the listing. */
  void close() {
    closed = true;
    call.release();
  }
}
