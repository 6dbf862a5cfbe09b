package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** Sorts the children of a member by name. */
final class SortEdit implements Edit {
  private final Ref parent;
  private final String title;
  private final boolean ascending;
  /** Where each child, in the order before, stands among the sorted ones. */
  private int[] sortedPlaces;

  SortEdit(Member parent, boolean ascending) {
    this.parent = Ref.to(parent);
    this.title =
        "Sort the children of " + parent.name() + (ascending ? "" : " from Z to A");
    this.ascending = ascending;
  }

  @Override
  public String title() {
    return title;
  }

  private static List<Member> children(Outline outline, Member parent) {
    try (Stream<Member> children = outline.children(parent, Details.NONE)) {
      return children.collect(Collectors.toList());
    }
  }

  @Override
  public void apply(EditContext context) {
    Outline outline = context.outline();
    Member member = context.member(parent);
    List<Member> before = children(outline, member);
    outline.sortChildren(member, ascending);
    Map<Integer, Integer> places = new HashMap<>();
    for (Member child : children(outline, member)) {
      places.put(child.handle(), places.size());
    }
    sortedPlaces = before.stream().mapToInt(child -> places.get(child.handle())).toArray();
    context.change().children(member.handle());
  }

  @Override
  public void revert(EditContext context) {
    Outline outline = context.outline();
    Member member = context.member(parent);
    List<Member> sorted = children(outline, member);
    // From behind, each before the one that follows it.
    Member next = null;
    for (int i = sorted.size() - 1; i >= 0; i--) {
      Member child = sorted.get(sortedPlaces[i]);
      outline.move(child, next == null ? Place.lastBelow(member) : Place.before(next));
      next = child;
    }
    context.change().children(member.handle());
  }
}
