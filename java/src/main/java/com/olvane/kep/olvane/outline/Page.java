package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.Collections;
import java.util.Iterator;
import java.util.List;

/** Some children of a member in a row, and the way to those behind them. */
public final class Page implements Iterable<Member> {
  private final Access access;
  private final Member parent;
  private final Details details;
  private final int size;
  private final List<Member> members;
  private final boolean last;

  private Page(
      Access access, Member parent, Details details, int size, List<Member> members,
      boolean last) {
    this.access = access;
    this.parent = parent;
    this.details = details;
    this.size = size;
    this.members = members;
    this.last = last;
  }

  /** Reads a page; {@code parent} is null for the dimensions. */
  static Page read(
      Access access, Member parent, int start, int next, int size, Details details) {
    if (size <= 0) {
      throw new IllegalArgumentException("A page has at least one member, not " + size);
    }
    Reading reading = Reading.children(access, parent, start, next, details);
    List<Member> members = reading.list(size);
    return new Page(access, parent, details, size, members, reading.wasLast());
  }

  /** {@return the members, an unmodifiable list} */
  public List<Member> members() {
    return Collections.unmodifiableList(members);
  }

  /** {@return the members} */
  @Override
  public Iterator<Member> iterator() {
    return members().iterator();
  }

  /** {@return whether more children follow} */
  public boolean hasNext() {
    return !last;
  }

  /**
   * Reads the next page, which begins behind the last member of this one.
   *
   * @return the page, empty when none follow
   * @throws OutlineException if that member is not there any more
   */
  public Page next() {
    if (last) {
      return new Page(access, parent, details, size, Collections.<Member>emptyList(), true);
    }
    return read(access, parent, OutlineBulk.FROM_BEHIND,
        members.get(members.size() - 1).handle(), size, details);
  }
}
