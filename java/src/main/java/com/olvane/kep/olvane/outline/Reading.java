package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Stream;

/** A listing by the fast lane, one buffer after the other. */
final class Reading implements Access.Call {
  private final Access access;
  private final String about;
  private final Details details;
  private final BulkCall call;
  private final RecordReader records = new RecordReader();
  /** When the first buffer was read; -1 before. */
  private long edits = -1;
  private int wanted = Integer.MAX_VALUE;
  private boolean done;

  /** Prepares a listing; {@code about} names the member that messages are about. */
  private Reading(Access access, String about, int operation, Details details) {
    this.access = access;
    this.about = about;
    this.details = details;
    call = new BulkCall(access, operation, details.aliasTables());
    call.put(OutlineBulk.DETAILS, details.bits());
  }

  /** The children of a parent, or the dimensions; {@code start} is one of {@code FROM_...}. */
  static Reading children(
      Access access, Member parent, int start, int next, Details details) {
    String about = parent == null ? "" : parent.name();
    Reading reading = new Reading(access, about, OutlineBulk.READ_CHILDREN, details);
    reading.call.put(OutlineBulk.MEMBER, parent == null ? 0 : parent.handle());
    reading.call.put(OutlineBulk.START, start);
    reading.call.put(OutlineBulk.NEXT, next);
    return reading;
  }

  static Reading subtree(Access access, Member root, Details details) {
    Reading reading = new Reading(access, root.name(), OutlineBulk.READ_SUBTREE, details);
    reading.call.put(OutlineBulk.MEMBER, root.handle());
    return reading;
  }

  static Reading members(Access access, String about, int[] handles, Details details) {
    Reading reading = new Reading(access, about, OutlineBulk.READ_MEMBERS, details);
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
    Reading reading = new Reading(access, name, OutlineBulk.FIND, details);
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
    access.read("read members", about, this);
    done = call.get(OutlineBulk.DONE) != 0;
    wanted -= call.count();
    call.takeInto(records);
    return records.step();
  }

  @Override
  public int on(InstanceHandle i, OutlineHandle o) {
    edits = edits < 0 ? access.edits() : edits;
    access.requireUnchanged(edits);
    int status = call.on(i, o);
    // Of a name that nobody has, there is nothing to read.
    return call.get(OutlineBulk.FAILED_FIELD) == OutlineBulk.FIELD_NAME ? Status.OK : status;
  }

  @Override
  public String field() {
    return call.field();
  }

  /** Ends the listing. */
  void close() {
    wanted = 0;
    call.close();
  }
}
