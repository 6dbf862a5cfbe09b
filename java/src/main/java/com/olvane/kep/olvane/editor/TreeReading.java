package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Collection;
import java.util.Deque;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Set;
import java.util.stream.Collectors;

/** Members with their places in the tree, read on the work thread to be put there. */
final class TreeReading {
  private final Outline outline;
  private final Details details;
  private final Collection<Integer> wanted;
  private final Map<Integer, Member> members = new HashMap<>();
  private final Map<Integer, Integer> places = new HashMap<>();
  private final List<Member> dimensions = new ArrayList<>();
  private final Map<Integer, Map<Integer, List<Member>>> pages = new HashMap<>();

  /** Reads members with all above them; those that are gone are left out. */
  TreeReading(Outline outline, Details details, Collection<Integer> wanted) {
    this.outline = outline;
    this.details = details;
    this.wanted = wanted;
    wanted.forEach(this::read);
  }

  private void read(int handle) {
    try {
      for (int at = handle; at != 0 && !members.containsKey(at);) {
        Member member = outline.read(new int[] {at}, details.place()).get(0);
        members.put(at, member);
        places.put(at, (int) outline.position(member));
        at = member.parentHandle();
      }
    } catch (OutlineException e) {
      // It was deleted.
    }
  }

  /** Reads the dimensions as well, and pages of children of members, by handle. */
  TreeReading withPages(Map<Integer, Set<Integer>> numbers) {
    dimensions.addAll(outline.dimensions(details));
    numbers.forEach((handle, ofParent) -> {
      read(handle);
      Member parent = members.get(handle);
      if (parent != null) {
        pages.put(handle, ofParent.stream().collect(Collectors.toMap(number -> number,
            number -> outline.page(parent, (long) number * MemberNode.Page.SIZE,
                MemberNode.Page.SIZE, details).members())));
      }
    });
    return this;
  }

  /** Puts the members into a model that has those above them; gives the nodes of those wanted. */
  List<MemberNode> addTo(PagedTreeModel model) {
    return wanted.stream().map(handle -> node(model, handle)).filter(Objects::nonNull)
        .collect(Collectors.toList());
  }

  private MemberNode node(PagedTreeModel model, int handle) {
    Deque<Member> way = new ArrayDeque<>();
    for (Member at = members.get(handle); at != null; at = members.get(at.parentHandle())) {
      way.push(at);
    }
    MemberNode node = way.isEmpty() ? null : model.getRoot();
    for (Member member : way) {
      int place = places.get(member.handle());
      if (place >= node.childCount) {
        return null;
      }
      node = model.child(node, place);
      if (node.member == null) {
        model.set(node, member);
      } else if (!node.member.equals(member)) {
        // The tree is about to hear of an edit that this place does not know of.
        return null;
      }
    }
    return node;
  }

  /** Gives nodes that are there their members as they are now; their children stay. */
  void update(PagedTreeModel model) {
    for (Integer handle : wanted) {
      MemberNode node = model.node(handle);
      if (node != null && members.containsKey(handle)) {
        node.member = members.get(handle);
      }
    }
  }

  /** Puts everything that was read into a model in place of what it has. */
  void replace(PagedTreeModel model) {
    model.clear(dimensions.size());
    for (int i = 0; i < dimensions.size(); i++) {
      model.set(model.child(model.getRoot(), i), dimensions.get(i));
    }
    addTo(model);
    pages.forEach((handle, ofParent) -> {
      MemberNode parent = node(model, handle);
      if (parent != null) {
        ofParent.forEach((number, read) -> model.fill(parent, number, read));
      }
    });
  }
}
