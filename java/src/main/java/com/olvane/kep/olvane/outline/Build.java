package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Iterator;
import java.util.List;

/** Makes many members through the fast lane, a buffer of records at a time. */
final class Build {
  /** A request is sent when it has grown to this size. */
  private static final int ENOUGH_BYTES = 60 * 1024;

  /** The children of one member that are being made. Members are numbered in the order made. */
  private static final class Level {
    final Iterator<NewMember> members;
    /** The parent: a number where {@code parentIsNumber}, else a handle. */
    final int parent;
    final boolean parentIsNumber;
    /** The one made last: a number, or a handle before the first. */
    int previous;
    boolean previousIsNumber;

    Level(Iterator<NewMember> members, int parent, boolean parentIsNumber, int previous) {
      this.members = members;
      this.parent = parent;
      this.parentIsNumber = parentIsNumber;
      this.previous = previous;
    }
  }

  private final Access access;
  private final List<String> tables = new ArrayList<>();
  private final List<Integer> records = new ArrayList<>();
  private final List<String> names = new ArrayList<>();
  private BulkCall call;
  private int[] made = new int[16];
  private int count;

  Build(Access access) {
    this.access = access;
  }

  /** Makes members one behind the other; their handles in pre-order. */
  int[] run(Place.Resolved place, Iterable<NewMember> members) {
    // A stack of its own: what is to be made may be deeper than a thread's.
    ArrayDeque<Level> levels = new ArrayDeque<>();
    levels.push(new Level(members.iterator(), place.parent, false, place.sibling));
    try {
      while (!levels.isEmpty()) {
        Level level = levels.peek();
        if (!level.members.hasNext()) {
          levels.pop();
          continue;
        }
        NewMember member = level.members.next();
        int number = count + records.size();
        add(member, level);
        level.previous = number;
        level.previousIsNumber = true;
        Iterator<NewMember> children = member.children();
        if (children.hasNext()) {
          levels.push(new Level(children, number, true, 0));
        }
        if (call != null && call.size() >= ENOUGH_BYTES) {
          send();
        }
      }
      send();
      return Arrays.copyOf(made, count);
    } finally {
      if (call != null) {
        call.release();
      }
    }
  }

  private void add(NewMember member, Level level) {
    int known = tables.size();
    member.details().addTables(tables);
    if (call != null && tables.size() > known) {
      // The tables stand before the records.
      send();
    }
    if (call == null) {
      call = new BulkCall(access, OutlineBulk.CREATE, tables);
    }
    int record = member.details().write(call, member.name(), tables);
    int given = member.details().given();
    given |= refer(record + OutlineBulk.MAKE_PARENT, level.parent, level.parentIsNumber,
        OutlineBulk.GIVEN_PARENT_INDEX);
    given |= refer(record + OutlineBulk.MAKE_SIBLING, level.previous, level.previousIsNumber,
        OutlineBulk.GIVEN_SIBLING_INDEX);
    call.put(record + OutlineBulk.MAKE_GIVEN, given);
    records.add(record);
    names.add(member.name());
  }

  /** Names a member as one of this request where it is one, else by its handle. */
  private int refer(int at, int member, boolean isNumber, int byIndex) {
    // A new member's number may be that of a record still to be sent, or already sent.
    if (!isNumber) {
      call.put(at, member);
      return 0;
    }
    if (member < count) {
      call.put(at, made[member]);
      return 0;
    }
    call.put(at, member - count);
    return byIndex;
  }

  private void send() {
    if (call == null) {
      return;
    }
    call.ready();
    access.enterToEdit();
    try {
      call.run();
    } finally {
      access.leave();
    }
    int before = count;
    made = made.length < before + call.count()
        ? Arrays.copyOf(made, Math.max(2 * made.length, before + call.count()))
        : made;
    for (int i = 0; i < call.count(); i++) {
      made[count++] = call.get(records.get(i) + OutlineBulk.MAKE_HANDLE);
    }
    if (call.status() != Status.OK) {
      String refused = call.count() < names.size() ? names.get(call.count()) : "";
      throw new OutlineException("make the member", call.status(), refused, call.field())
          .madeBefore(Arrays.copyOf(made, count));
    }
    call.release();
    call = null;
    records.clear();
    names.clear();
  }
}
