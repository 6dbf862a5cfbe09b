package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collection;
import java.util.Collections;
import java.util.Deque;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Set;
import java.util.stream.Collectors;
import java.util.stream.IntStream;
import javax.swing.event.TreeModelEvent;
import javax.swing.event.TreeModelListener;
import javax.swing.tree.TreeModel;
import javax.swing.tree.TreePath;

/**
 * The members of an outline for a tree that asks only for what it shows. Children are read by the
 * page when one of them is asked for; until then the tree gets nodes without members. Used on the
 * event thread.
 */
final class PagedTreeModel implements TreeModel {
  /** So many pages are kept besides those with nodes that are in use. */
  private static final int KEPT_PAGES = 300;
  /** So many pages wait at most: whoever scrolls fast doesn't look at what rushes by. */
  private static final int WAITING_PAGES = 6;

  private final OutlineTree tree;
  private final Workspace workspace;
  private final MemberNode root = new MemberNode(null, 0);
  /** All nodes whose members were read. */
  final Map<Integer, MemberNode> byHandle = new HashMap<>();
  /** The pages by how long ago they were used. */
  private final Set<MemberNode.Page> used = new LinkedHashSet<>();
  private final Deque<MemberNode.Page> waiting = new ArrayDeque<>();
  /** The page that is being read. */
  private MemberNode.Page underWay;
  private final List<TreeModelListener> listeners = new ArrayList<>();
  /** What is read of the members. */
  Details details = Details.NONE;

  /** Makes the model of a tree, without dimensions. */
  PagedTreeModel(OutlineTree tree, Workspace workspace) {
    this.tree = tree;
    this.workspace = workspace;
  }

  /** The node of a member that is there, or null. */
  MemberNode node(int handle) {
    return handle == EditContext.DIMENSIONS ? root : byHandle.get(handle);
  }

  // ---- The tree's questions ----

  @Override
  public MemberNode getRoot() {
    return root;
  }

  @Override
  public int getChildCount(Object parent) {
    return ((MemberNode) parent).childCount;
  }

  @Override
  public boolean isLeaf(Object node) {
    return node != root && ((MemberNode) node).childCount == 0;
  }

  @Override
  public int getIndexOfChild(Object parent, Object child) {
    return child == null ? -1 : ((MemberNode) child).index;
  }

  @Override
  public MemberNode getChild(Object parent, int index) {
    MemberNode above = (MemberNode) parent;
    if (index >= above.childCount) {
      // The tree has not heard yet of children that are gone.
      return new MemberNode(above, index);
    }
    MemberNode node = child(above, index);
    if (node.member == null && above != root) {
      request(above.pages.get(index / MemberNode.Page.SIZE));
    }
    return node;
  }

  /** The node of a place, made when there is none; asks for nothing. */
  MemberNode child(MemberNode parent, int index) {
    MemberNode.Page page = parent.pages.computeIfAbsent(
        index / MemberNode.Page.SIZE, number -> new MemberNode.Page(parent, number));
    used.remove(page);
    used.add(page);
    return page.nodes[index % MemberNode.Page.SIZE];
  }

  /** Gives a node its member as it was read now. */
  void set(MemberNode node, Member member) {
    node.member = member;
    node.childCount = (int) Math.min(member.childCount(), Integer.MAX_VALUE);
    byHandle.put(member.handle(), node);
  }

  // ---- Reading ----

  private void request(MemberNode.Page page) {
    if (page == underWay) {
      return;
    }
    // The latest first.
    waiting.remove(page);
    waiting.addFirst(page);
    if (waiting.size() > WAITING_PAGES) {
      waiting.removeLast();
    }
    if (underWay == null) {
      readNext();
    }
  }

  private void readNext() {
    underWay = waiting.poll();
    if (underWay != null) {
      read(Collections.singletonList(underWay), this::readNext);
    }
  }

  /** Reads the members of nodes that have none yet. */
  void read(Collection<MemberNode> nodes) {
    List<MemberNode.Page> pages = nodes.stream().filter(node -> node.parent.member != null)
        .map(node -> node.parent.pages.get(node.index / MemberNode.Page.SIZE)).distinct()
        .filter(Objects::nonNull).collect(Collectors.toList());
    if (!pages.isEmpty()) {
      read(pages, () -> {});
    }
  }

  private void read(List<MemberNode.Page> pages, Runnable then) {
    List<Member> parents =
        pages.stream().map(page -> page.parent.member).collect(Collectors.toList());
    Details wanted = details;
    workspace.read(() -> IntStream.range(0, pages.size())
        .mapToObj(i -> members(parents.get(i), pages.get(i).number, wanted))
        .collect(Collectors.toList()), found -> {
          for (int i = 0; i < found.size(); i++) {
            if (used.contains(pages.get(i))) {
              fill(pages.get(i).parent, pages.get(i).number, found.get(i));
            }
          }
          forget();
          tree.arrived();
          then.run();
        });
  }

  private List<Member> members(Member parent, int page, Details wanted) {
    try {
      return workspace.outline.page(parent, (long) page * MemberNode.Page.SIZE,
          MemberNode.Page.SIZE, wanted).members();
    } catch (RuntimeException e) {
      // The parent was deleted meanwhile, and the tree hears of it.
      return Collections.emptyList();
    }
  }

  /** Gives the nodes of a page their members. */
  void fill(MemberNode parent, int page, List<Member> members) {
    int first = page * MemberNode.Page.SIZE;
    for (int i = 0; i < members.size() && first + i < parent.childCount; i++) {
      set(child(parent, first + i), members.get(i));
    }
  }

  /** Lets pages go that have not been used for long. */
  private void forget() {
    int left = used.size() - KEPT_PAGES;
    for (MemberNode.Page page : new ArrayList<>(used).subList(0, Math.max(0, left))) {
      if (page.parent != root && Arrays.stream(page.nodes).noneMatch(tree::uses)) {
        drop(page);
      }
    }
  }

  private void drop(MemberNode.Page page) {
    used.remove(page);
    page.parent.pages.remove(page.number, page);
    for (MemberNode node : page.nodes) {
      byHandle.remove(node.handle(), node);
      new ArrayList<>(node.pages.values()).forEach(this::drop);
    }
  }

  /** Forgets all members, to begin anew with so many dimensions. */
  void clear(int dimensions) {
    root.pages.clear();
    root.childCount = dimensions;
    byHandle.clear();
    used.clear();
    waiting.clear();
  }

  // ---- Telling the tree ----

  @Override
  public void addTreeModelListener(TreeModelListener listener) {
    listeners.add(listener);
  }

  @Override
  public void removeTreeModelListener(TreeModelListener listener) {
    listeners.remove(listener);
  }

  /** Tells that other members stand in the tree. */
  void fireChanged() {
    TreeModelEvent event = new TreeModelEvent(this, root.path());
    listeners.forEach(listener -> listener.treeStructureChanged(event));
  }

  /** The tree's editor was given a name. */
  @Override
  public void valueForPathChanged(TreePath path, Object name) {
    Member member = MemberNode.of(path).member;
    if (member != null && !member.name().equals(name)) {
      tree.renamed.accept(member, (String) name);
    }
  }

  /** Members with their places in the tree, read on the work thread to be put there. */
  static final class Reading {
    private final Outline outline;
    private final Details details;
    private final Collection<Integer> wanted;
    private final Map<Integer, Member> members = new HashMap<>();
    private final Map<Integer, Integer> places = new HashMap<>();
    private final List<Member> dimensions = new ArrayList<>();
    private final Map<Integer, Map<Integer, List<Member>>> pages = new HashMap<>();

    /** Reads members with all above them; those that are gone are left out. */
    Reading(Outline outline, Details details, Collection<Integer> wanted) {
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
          // To ask for its place takes the longer the more stand before it.
          Integer before = places.get(member.previousHandle());
          places.put(at, before == null ? (int) outline.position(member) : before + 1);
          at = member.parentHandle();
        }
      } catch (OutlineException e) {
        // It was deleted.
      }
    }

    /** Reads the dimensions as well, and pages of children of members, by handle. */
    Reading withPages(Map<Integer, Set<Integer>> numbers) {
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
}
