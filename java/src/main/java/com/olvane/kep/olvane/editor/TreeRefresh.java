package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.util.ArrayList;
import java.util.Collection;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * Brings a tree up to an edit: reads on the work thread what is shown of the parents that were
 * affected, and puts it in place on the event thread. Nodes that are expanded or selected are kept
 * wherever their members now stand.
 */
final class TreeRefresh {
  /** A parent as it is now. */
  private static final class Parent {
    Member member;
    int childCount;
    final Map<Integer, List<Member>> pages = new LinkedHashMap<>();
  }

  /** A member that is kept, where it stands now. */
  private static final class Kept {
    Member member;
    int parent;
    int index;
  }

  private final PagedTreeModel model;
  private final Details details;
  /** The affected parents that the tree has, with their pages that are in view. */
  private final Map<Integer, Set<Integer>> wanted = new LinkedHashMap<>();
  private final Set<Integer> keep = new LinkedHashSet<>();
  private final Set<Integer> changed = new LinkedHashSet<>();

  private final Map<Integer, Parent> parents = new LinkedHashMap<>();
  private final List<Kept> kept = new ArrayList<>();
  private final List<Member> members = new ArrayList<>();

  /** Prepares a refresh, on the event thread. */
  TreeRefresh(PagedTreeModel model) {
    this.model = model;
    this.details = model.details();
  }

  /** The children of a parent changed, of which some pages are in view. */
  void parent(int handle, Set<Integer> pagesInView) {
    wanted.computeIfAbsent(handle, h -> new LinkedHashSet<>()).addAll(pagesInView);
  }

  /** These nodes are expanded or selected. */
  void keep(Collection<Integer> handles) {
    keep.addAll(handles);
  }

  /** These members' details changed. */
  void changed(Collection<Integer> handles) {
    changed.addAll(handles);
  }

  // ---- On the work thread ----

  TreeRefresh read(Outline outline) {
    for (Map.Entry<Integer, Set<Integer>> one : wanted.entrySet()) {
      Parent parent = one.getKey() == OutlineChange.DIMENSIONS
          ? dimensions(outline) : readParent(outline, one.getKey(), one.getValue());
      if (parent != null) {
        parents.put(one.getKey(), parent);
      }
    }
    if (!parents.isEmpty()) {
      // A parent may stand below another one that is put together anew.
      keep.addAll(parents.keySet());
      keep.remove(OutlineChange.DIMENSIONS);
      for (Integer handle : keep) {
        Member member = member(outline, handle, details.place());
        if (member != null && parents.containsKey(member.parentHandle())) {
          Kept one = new Kept();
          one.member = member;
          one.parent = member.parentHandle();
          one.index = (int) outline.position(member);
          kept.add(one);
        }
      }
    }
    for (Integer handle : changed) {
      Member member = member(outline, handle, details);
      if (member != null) {
        members.add(member);
      }
    }
    return this;
  }

  private static Member member(Outline outline, int handle, Details details) {
    try {
      return outline.read(new int[] {handle}, details).get(0);
    } catch (OutlineException e) {
      return null;
    }
  }

  private Parent dimensions(Outline outline) {
    Parent parent = new Parent();
    List<Member> all = outline.dimensions(details);
    parent.childCount = all.size();
    for (int from = 0; from < all.size(); from += PagedTreeModel.PAGE) {
      parent.pages.put(from / PagedTreeModel.PAGE,
          all.subList(from, Math.min(all.size(), from + PagedTreeModel.PAGE)));
    }
    return parent;
  }

  private Parent readParent(Outline outline, int handle, Set<Integer> pages) {
    Parent parent = new Parent();
    parent.member = member(outline, handle, details);
    if (parent.member == null) {
      return null;
    }
    parent.childCount = (int) parent.member.childCount();
    for (Integer page : pages) {
      long position = (long) page * PagedTreeModel.PAGE;
      if (position < parent.childCount) {
        parent.pages.put(page,
            outline.page(parent.member, position, PagedTreeModel.PAGE, details).members());
      }
    }
    return parent;
  }

  // ---- On the event thread ----

  /** Puts what was read in place. */
  void apply() {
    Map<Integer, MemberNode> nodes = new HashMap<>();
    for (Kept one : kept) {
      MemberNode node = model.detach(one.member.handle());
      if (node != null) {
        nodes.put(one.member.handle(), node);
      }
    }
    parents.forEach((handle, parent) -> {
      MemberNode node = node(nodes, handle);
      if (node != null) {
        model.dropPages(node);
        if (parent.member != null) {
          model.set(node, parent.member);
        }
        node.childCount = parent.childCount;
      }
    });
    for (Kept one : kept) {
      MemberNode parent = node(nodes, one.parent);
      MemberNode node = nodes.get(one.member.handle());
      if (parent != null && node != null) {
        model.attach(node, parent, one.index);
        model.set(node, one.member);
      }
    }
    parents.forEach((handle, parent) -> {
      MemberNode node = node(nodes, handle);
      if (node != null) {
        parent.pages.forEach((page, read) -> model.fill(node, page, read));
      }
    });
    // Of several parents the tree hears at once: between two it would find numbers that differ.
    if (parents.size() == 1 && node(nodes, parents.keySet().iterator().next()) != null) {
      model.fireChildrenChanged(node(nodes, parents.keySet().iterator().next()));
    } else if (!parents.isEmpty()) {
      model.fireChildrenChanged(model.getRoot());
    }
    for (Member member : members) {
      MemberNode node = model.node(member.handle());
      if (node != null) {
        model.set(node, member);
      }
    }
  }

  private MemberNode node(Map<Integer, MemberNode> detached, int handle) {
    MemberNode node = detached.get(handle);
    return node != null ? node : model.node(handle);
  }
}
