package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Stream;

/** A listing by the fast lane, one buffer after the other. */
final class Reading {
  private final Access access;
  private final String action;
  private final String about;
  private final Details details;
  private final BulkCall call;
  private final RecordReader records = new RecordReader();
  private int wanted = Integer.MAX_VALUE;
  private boolean done;

  /** Prepares a listing; {@code about} is the name of the member that it is about. */
  private Reading(Access access, String action, String about, int operation, Details details) {
    this.access = access;
    this.action = action;
    this.about = about;
    this.details = details;
    call = new BulkCall(access, operation, details.aliasTables());
    call.put(OutlineBulk.DETAILS, details.bits());
  }

  /** The children of a parent, or the dimensions; {@code start} is one of {@code FROM_...}. */
  static Reading children(Access access, Member parent, int start, int next, Details details) {
    String about = parent == null ? "" : parent.name();
    String action = parent == null ? "read the dimensions" : "read the children of";
    Reading reading = new Reading(access, action, about, OutlineBulk.READ_CHILDREN, details);
    reading.call.put(OutlineBulk.MEMBER, parent == null ? 0 : parent.handle());
    reading.call.put(OutlineBulk.START, start);
    reading.call.put(OutlineBulk.NEXT, next);
    return reading;
  }

  static Reading subtree(Access access, Member root, Details details) {
    Reading reading = new Reading(
        access, "read what is below", root.name(), OutlineBulk.READ_SUBTREE, details);
    reading.call.put(OutlineBulk.MEMBER, root.handle());
    return reading;
  }

  /** The members of handles; {@code about} is the name of the one that it is about. */
  static Reading members(Access access, String about, int[] handles, Details details) {
    String action = about.isEmpty() ? "read members" : "read";
    Reading reading = new Reading(access, action, about, OutlineBulk.READ_MEMBERS, details);
    for (int handle : handles) {
      reading.call.number(handle);
    }
    return reading;
  }

  /** The member of a handle as it is now. */
  static Member again(Access access, String name, int handle, Details details) {
    return members(access, name, new int[] {handle}, details).all().get(0);
  }

  /** The member of a name, or nothing. */
  static Reading named(Access access, String name, Details details) {
    Reading reading = new Reading(access, "look up", name, OutlineBulk.FIND, details);
    reading.call.text(name);
    return reading;
  }

  /** All members that come, and ends the listing. */
  List<Member> all() {
    return list(Integer.MAX_VALUE);
  }

  /** The next members, at most {@code limit}, and ends the listing. */
  List<Member> list(int limit) {
    wanted = limit;
    List<Member> members = new ArrayList<>();
    try {
      for (Member member = next(); member != null; member = next()) {
        members.add(member);
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
    if (!records.step() && !fill()) {
      close();
      return null;
    }
    return new Member(records, details);
  }

  /** Reads a buffer of members and steps to the first; false when there are no more. */
  private boolean fill() {
    if (done || wanted == 0) {
      return false;
    }
    call.put(OutlineBulk.LIMIT, wanted);
    int status = access.answer(call);
    if (call.get(OutlineBulk.FAILED_FIELD) == OutlineBulk.FIELD_NAME) {
      // Nobody has the name that was to be looked up.
      return false;
    }
    Access.check(action, about, call.field(), status);
    done = call.get(OutlineBulk.DONE) != 0;
    wanted -= call.count();
    call.takeInto(records);
    return records.step();
  }

  /** Ends the listing. */
  void close() {
    wanted = 0;
    call.close();
  }
}
