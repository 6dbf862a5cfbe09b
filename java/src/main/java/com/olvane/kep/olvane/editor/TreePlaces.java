package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;

/** Where members stand in the tree, read on the work thread and put there on the event thread. */
final class TreePlaces {
  /** A member with its place among its siblings. */
  private static final class Step {
    final Member member;
    final int index;

    Step(Member member, int index) {
      this.member = member;
      this.index = index;
    }
  }

  /** The ways to the members, from the dimension on. */
  private final List<List<Step>> ways = new ArrayList<>();

  private TreePlaces() {}

  /** Reads where members stand; those that are gone are left out. */
  static TreePlaces of(Outline outline, List<Member> members, Details details) {
    TreePlaces places = new TreePlaces();
    Map<Integer, Step> known = new HashMap<>();
    for (Member member : members) {
      try {
        List<Member> chain = new ArrayList<>(outline.ancestors(member, details));
        chain.add(0, outline.read(member, details));
        List<Step> way = new ArrayList<>();
        for (Member one : chain) {
          way.add(0, known.computeIfAbsent(one.handle(),
              h -> new Step(one, (int) outline.position(one))));
        }
        places.ways.add(way);
      } catch (OutlineException e) {
        // It was deleted.
      }
    }
    return places;
  }

  /** Gives the model the nodes on the ways; the last one of each. */
  List<MemberNode> attach(PagedTreeModel model) {
    List<MemberNode> ends = new ArrayList<>();
    for (List<Step> way : ways) {
      MemberNode node = model.getRoot();
      for (Step step : way) {
        if (node == null || step.index >= node.childCount) {
          node = null;
          break;
        }
        MemberNode child = model.child(node, step.index);
        if (child.member == null || child.handle() == step.member.handle()) {
          model.set(child, step.member);
          node = child;
        } else {
          // The tree is about to hear of an edit that this place does not know of.
          node = null;
        }
      }
      if (node != null) {
        ends.add(node);
      }
    }
    return ends;
  }
}
