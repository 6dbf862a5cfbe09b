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

  /** A member that others stand below or behind. */
  private static final class Anchor {
    private static final int THERE = -1;

    /** The number of its record in the request; {@link #THERE} once it has a handle. */
    int index = THERE;
    int handle;
    /** Where its record begins. */
    int record;
    String name;

    /** One that is there; 0 where there is none. */
    Anchor(int handle) {
      this.handle = handle;
    }

    /** One that the request makes. */
    Anchor(int index, int record, String name) {
      this.index = index;
      this.record = record;
      this.name = name;
    }
  }

  /** The children of one member that are being made. */
  private static final class Level {
    final Iterator<NewMember> members;
    final Anchor parent;
    Anchor previous;

    Level(Iterator<NewMember> members, Anchor parent, Anchor previous) {
      this.members = members;
      this.parent = parent;
      this.previous = previous;
    }
  }

  private final Access access;
  private final List<String> tables = new ArrayList<>();
  private final List<Anchor> request = new ArrayList<>();
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
    levels.push(new Level(members.iterator(), new Anchor(place.parent), new Anchor(place.sibling)));
    try {
      while (!levels.isEmpty()) {
        Level level = levels.peek();
        if (!level.members.hasNext()) {
          levels.pop();
          continue;
        }
        NewMember member = level.members.next();
        level.previous = add(member, level);
        Iterator<NewMember> children = member.children();
        if (children.hasNext()) {
          levels.push(new Level(children, level.previous, new Anchor(0)));
        }
        if (call.size() >= ENOUGH_BYTES) {
          send();
        }
      }
      send();
      return Arrays.copyOf(made, count);
    } finally {
      if (call != null) {
        call.close();
      }
    }
  }

  private Anchor add(NewMember member, Level level) {
    int known = tables.size();
    member.details().addTables(tables);
    if (tables.size() > known) {
      // The tables stand before the records.
      send();
    }
    if (call == null) {
      call = new BulkCall(access, OutlineBulk.CREATE, tables);
    }
    int record = member.details().write(call, member.name(), tables);
    int given = member.details().given();
    given |= refer(record + OutlineBulk.MAKE_PARENT, level.parent, OutlineBulk.GIVEN_PARENT_INDEX);
    given |= refer(
        record + OutlineBulk.MAKE_SIBLING, level.previous, OutlineBulk.GIVEN_SIBLING_INDEX);
    call.put(record + OutlineBulk.MAKE_GIVEN, given);
    Anchor added = new Anchor(request.size(), record, member.name());
    request.add(added);
    return added;
  }

  /** Names a member by its number in this request where it has one, else by its handle. */
  private int refer(int at, Anchor member, int byIndex) {
    boolean there = member.index == Anchor.THERE;
    call.put(at, there ? member.handle : member.index);
    return there ? 0 : byIndex;
  }

  private void send() {
    if (call == null) {
      return;
    }
    int status = access.answerToEdit(call);
    for (Anchor one : request.subList(0, call.count())) {
      one.handle = call.get(one.record + OutlineBulk.MAKE_HANDLE);
      one.index = Anchor.THERE;
      made = count < made.length ? made : Arrays.copyOf(made, 2 * count);
      made[count++] = one.handle;
    }
    if (status != Status.OK) {
      String refused = call.count() < request.size() ? request.get(call.count()).name : "";
      throw new OutlineException("create", status, refused, call.field())
          .madeBefore(Arrays.copyOf(made, count));
    }
    call.close();
    call = null;
    request.clear();
  }
}
