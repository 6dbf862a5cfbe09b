package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.calcscript.MemberInfo;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.MemberPath;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Objects;
import java.util.Optional;
import java.util.Set;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** What every open outline allows: reading members and searching. */
abstract class BrowsedOutline {
  final Access access;

  BrowsedOutline(Access access) {
    this.access = access;
  }

  /** {@return the dimensions in order} */
  public List<Member> dimensions() {
    return dimensions(Details.NONE);
  }

  /**
   * Reads the dimensions in order.
   *
   * @param details what to read of each
   * @return the dimensions
   */
  public List<Member> dimensions(Details details) {
    return Reading.children(access, null, OutlineBulk.FROM_FIRST, 0, details).all();
  }

  /**
   * Finds the member of a name.
   *
   * @param name the name
   * @return the member, or nothing where there is none
   */
  public Optional<Member> find(String name) {
    return find(name, Details.NONE);
  }

  /**
   * Finds the member of a name.
   *
   * @param name the name
   * @param details what to read of it
   * @return the member, or nothing where there is none
   */
  public Optional<Member> find(String name, Details details) {
    List<Member> found = Reading.named(access, name, details).all();
    return found.isEmpty() ? Optional.empty() : Optional.of(found.get(0));
  }

  /**
   * Reads a member anew.
   *
   * @param member the member
   * @param details what to read of it
   * @return the member as it is now
   * @throws OutlineException if it is not there any more
   */
  public Member read(Member member, Details details) {
    return Reading.again(access, member.name(), member.handle(), details);
  }

  /**
   * Reads members by their handles.
   *
   * @param handles the handles
   * @param details what to read of each
   * @return the members in the order of the handles
   * @throws OutlineException if one is not there any more
   */
  public List<Member> read(int[] handles, Details details) {
    for (int handle : handles) {
      if (handle == 0) {
        throw new IllegalArgumentException("The handle 0 names no member");
      }
    }
    return Reading.members(access, "", handles, details).all();
  }

  /**
   * Reads a page of children.
   *
   * @param parent the parent
   * @param position the position of the first child to read, from 0
   * @param size the largest number of children to read
   * @param details what to read of each
   * @return the page, empty when there is no such position
   */
  public Page page(Member parent, long position, int size, Details details) {
    if (position < 0 || position > 0xffffffffL) {
      throw new IllegalArgumentException("No child has the position " + position);
    }
    Objects.requireNonNull(parent);
    int start = position == 0 ? OutlineBulk.FROM_FIRST : OutlineBulk.FROM_POSITION;
    return new Page(access, parent, start, (int) position, size, details);
  }

  /**
   * Reads a page of children that begins with a given one.
   *
   * @param parent the parent
   * @param first the child to begin with
   * @param size the largest number of children to read
   * @param details what to read of each
   * @return the page
   * @throws OutlineException if {@code first} is no child of {@code parent} any more
   */
  public Page pageFrom(Member parent, Member first, int size, Details details) {
    return new Page(access, Objects.requireNonNull(parent), OutlineBulk.FROM_MEMBER,
        first.handle(), size, details);
  }

  /**
   * Streams the children of a member. The stream takes the outline for one buffer of members at a
   * time, and ends with a {@link java.util.ConcurrentModificationException} when the outline is
   * edited in between. It gives its buffer back at its end or when it is closed.
   *
   * @param parent the parent
   * @param details what to read of each
   * @return the children in order
   */
  public Stream<Member> children(Member parent, Details details) {
    return Reading.children(
        access, Objects.requireNonNull(parent), OutlineBulk.FROM_FIRST, 0, details).stream();
  }

  /**
   * Streams a member and its descendants in pre-order, like {@link #children(Member, Details)}.
   *
   * @param root the member
   * @param details what to read of each
   * @return the members, parents first
   */
  public Stream<Member> subtree(Member root, Details details) {
    return Reading.subtree(access, root, details).stream();
  }

  /**
   * Reads the ancestors of a member.
   *
   * @param member the member
   * @param details what to read of each
   * @return the parent first, the dimension last; nothing for a dimension
   */
  public List<Member> ancestors(Member member, Details details) {
    List<DefaultMember> found = new ArrayList<>();
    access.read("read the ancestors of", member.name(),
        (i, o) -> OutlineJni.getMemberAncestors(i, o, null, member.handle(), found));
    int[] handles = found.stream().mapToInt(DefaultMember::getHandle).toArray();
    return read(handles, details);
  }

  /**
   * Tells the position of a member among its siblings.
   *
   * @param member the member
   * @return the number of siblings before it
   */
  public long position(Member member) {
    try (BulkCall call = new BulkCall(access, OutlineBulk.POSITION, Collections.emptyList())) {
      call.put(OutlineBulk.MEMBER, member.handle());
      access.read("tell the position of", member.name(), call);
      return Integer.toUnsignedLong(call.count());
    }
  }

  /**
   * Prepares a search.
   *
   * @param search what to search for
   * @param details what to read of each member found
   * @return the search, of which no batch has been carried out
   */
  public SearchRun search(Search search, Details details) {
    return new SearchRun(access, search, details);
  }

  /**
   * Searches the whole outline at once and tells the way from each match up to its dimension.
   *
   * @param search what to search for: a text in names, or in the aliases of one table instead
   * @return the names of each match and of its ancestors, the match first
   */
  public List<List<String>> paths(Search search) {
    List<MemberPath> found = new ArrayList<>();
    access.read("search " + access, (i, o) -> search.paths(o, found));
    return found.stream().map(MemberPath::getNames).collect(Collectors.toList());
  }

  /**
   * Finds members by a pattern over whole names, by the outline's own search.
   *
   * @param pattern the pattern; {@code *} stands for any text, {@code ?} for one character
   * @param dimension the dimension to search, or null for all
   * @param table the alias table whose aliases are searched as well, or null for names only
   * @return the names of the members; their aliases where a table is given and they have one
   */
  public List<String> match(String pattern, Member dimension, String table) {
    Texts.given("", "pattern", pattern, Integer.MAX_VALUE);
    List<MemberInfo> found = new ArrayList<>();
    access.read("search " + access + " for " + pattern, (i, o) -> OutlineJni.listFindMembers(
        o, dimension == null ? null : dimension.name(), pattern, table != null, table, found));
    return found.stream().map(MemberInfo::getName).collect(Collectors.toList());
  }

  /**
   * Lists the user-defined attributes that occur in a dimension.
   *
   * @param dimension the dimension
   * @return each of them once, in the order in which they occur
   */
  public List<String> udas(Member dimension) {
    Set<String> udas = new LinkedHashSet<>();
    access.read("list the user-defined attributes of", dimension.name(),
        (i, o) -> OutlineJni.getDimensionUDAS(i, o, dimension.name(), 0, udas));
    return new ArrayList<>(udas);
  }
}
