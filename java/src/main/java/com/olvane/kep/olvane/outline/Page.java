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

  /** Reads a page. */
  Page(Access access, Member parent, int start, int next, int size, Details details) {
    if (size <= 0) {
      throw new IllegalArgumentException("A page has at least one member, not " + size);
    }
    this.access = access;
    this.parent = parent;
    this.details = details;
    this.size = size;
    Reading reading = Reading.children(access, parent, start, next, details);
    members = Collections.unmodifiableList(reading.list(size));
    last = reading.wasLast();
  }

  /** {@return the members, an unmodifiable list} */
  public List<Member> members() {
    return members;
  }

  /** {@return the members} */
  @Override
  public Iterator<Member> iterator() {
    return members.iterator();
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
    // Behind nobody, there is nothing.
    int behind = last ? 0 : members.get(members.size() - 1).handle();
    return new Page(access, parent, OutlineBulk.FROM_BEHIND, behind, size, details);
  }
}
