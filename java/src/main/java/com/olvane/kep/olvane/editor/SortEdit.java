package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import java.util.Arrays;
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

  private static int[] children(Outline outline, Member parent) {
    try (Stream<Member> children = outline.children(parent, Details.NONE)) {
      return children.mapToInt(Member::handle).toArray();
    }
  }

  @Override
  public void apply(EditContext context) {
    Outline outline = context.outline();
    Member member = context.member(parent);
    int[] before = children(outline, member);
    outline.sortChildren(member, ascending);
    int[] sorted = children(outline, member);
    // Handle and place in one number each, in the order of the handles.
    long[] places = new long[sorted.length];
    for (int i = 0; i < sorted.length; i++) {
      places[i] = (long) sorted[i] << Integer.SIZE | i;
    }
    Arrays.sort(places);
    sortedPlaces = new int[before.length];
    for (int i = 0; i < before.length; i++) {
      int found = -1 - Arrays.binarySearch(places, ((long) before[i] << Integer.SIZE) - 1);
      sortedPlaces[i] = (int) places[found];
    }
    context.change().children(member.handle());
  }

  @Override
  public void revert(EditContext context) {
    Outline outline = context.outline();
    Member member = context.member(parent);
    int[] sorted = children(outline, member);
    // From behind, each before the one that follows it.
    Member next = null;
    for (int i = sorted.length - 1; i >= 0; i--) {
      Member child = outline.read(new int[] {sorted[sortedPlaces[i]]}, Details.NONE).get(0);
      outline.move(child, next == null ? Place.lastBelow(member) : Place.before(next));
      next = child;
    }
    context.change().children(member.handle());
  }
}
