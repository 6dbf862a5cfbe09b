package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.Iterator;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.function.Predicate;
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
  static final int PAGE = 64;
  /** So many pages are kept besides those with nodes that are in use. */
  private static final int KEPT_PAGES = 300;
  /** So many pages wait at most: whoever scrolls fast doesn't look at what rushes by. */
  private static final int WAITING_PAGES = 6;

  /** One page of one parent. */
  private static final class Key {
    final MemberNode parent;
    final int page;

    Key(MemberNode parent, int page) {
      this.parent = parent;
      this.page = page;
    }

    @Override
    public boolean equals(Object other) {
      return other instanceof Key && ((Key) other).parent == parent && ((Key) other).page == page;
    }

    @Override
    public int hashCode() {
      return 31 * System.identityHashCode(parent) + page;
    }
  }

  private final Workspace workspace;
  private final MemberNode root = new MemberNode(null, 0);
  private final Map<Integer, MemberNode> byHandle = new HashMap<>();
  /** The pages by how long ago they were used. */
  private final LinkedHashMap<Key, Boolean> used = new LinkedHashMap<>(64, 0.75f, true);
  private final List<Key> waiting = new ArrayList<>();
  private final Set<Key> underWay = new HashSet<>();
  private final List<TreeModelListener> listeners = new ArrayList<>();
  private final Runnable arrived;
  private final Predicate<MemberNode> inUse;
  private Details details = Details.NONE.formula().attributes();

  /**
   * Makes a model without dimensions.
   *
   * @param arrived is run when members have been read for nodes that were given out
   * @param inUse whether a node must be kept: it is selected or expanded
   */
  PagedTreeModel(Workspace workspace, Runnable arrived, Predicate<MemberNode> inUse) {
    this.workspace = workspace;
    this.arrived = arrived;
    this.inUse = inUse;
  }

  /** What is read of the members. */
  Details details() {
    return details;
  }

  /** Reads aliases of a table from now on; those of nodes that are there stay as they are. */
  void setDetails(Details wanted) {
    details = wanted;
  }

  /** The node of a member that is there, or null. */
  MemberNode node(int handle) {
    return handle == OutlineChange.DIMENSIONS ? root : byHandle.get(handle);
  }

  /** All nodes whose members were read. */
  List<MemberNode> nodes() {
    return new ArrayList<>(byHandle.values());
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
    if (node.member == null) {
      request(new Key(above, index / PAGE));
    }
    return node;
  }

  /** The node of a place, made when there is none; asks for nothing. */
  MemberNode child(MemberNode parent, int index) {
    int number = index / PAGE;
    MemberNode[] page = parent.pages.get(number);
    if (page == null) {
      page = new MemberNode[Math.min(PAGE, parent.childCount - number * PAGE)];
      parent.pages.put(number, page);
    }
    used.put(new Key(parent, number), true);
    int place = index % PAGE;
    if (page[place] == null) {
      page[place] = new MemberNode(parent, index);
    }
    return page[place];
  }

  /** Gives a node its member. */
  void set(MemberNode node, Member member) {
    node.set(member);
    byHandle.put(member.handle(), node);
  }

  // ---- Reading ----

  private void request(Key key) {
    if (underWay.contains(key) || key.parent == root) {
      return;
    }
    // The latest first.
    waiting.remove(key);
    waiting.add(key);
    if (waiting.size() > WAITING_PAGES) {
      waiting.remove(0);
    }
    if (underWay.isEmpty()) {
      readNext();
    }
  }

  private void readNext() {
    if (waiting.isEmpty()) {
      return;
    }
    Key key = waiting.remove(waiting.size() - 1);
    if (key.parent.member == null) {
      readNext();
      return;
    }
    underWay.add(key);
    Member parent = key.parent.member;
    Details wanted = details;
    workspace.read(() -> {
      try {
        return workspace.outline().page(parent, (long) key.page * PAGE, PAGE, wanted).members();
      } catch (RuntimeException e) {
        // The parent was deleted meanwhile, and the tree hears of it.
        return new ArrayList<Member>();
      }
    }, members -> {
      underWay.remove(key);
      fill(key.parent, key.page, members);
      arrived.run();
      readNext();
    });
  }

  /** Gives the nodes of a page their members. */
  void fill(MemberNode parent, int page, List<Member> members) {
    for (int i = 0; i < members.size(); i++) {
      int index = page * PAGE + i;
      if (index < parent.childCount) {
        set(child(parent, index), members.get(i));
      }
    }
    forget();
  }

  /** Lets pages go that have not been used for long. */
  private void forget() {
    Iterator<Key> oldest = used.keySet().iterator();
    for (int left = used.size() - KEPT_PAGES; left > 0 && oldest.hasNext(); left--) {
      Key key = oldest.next();
      MemberNode[] page = key.parent.pages.get(key.page);
      if (page == null || key.parent != root && !anyInUse(page)) {
        oldest.remove();
        drop(key.parent, key.page);
      }
    }
  }

  private boolean anyInUse(MemberNode[] page) {
    for (MemberNode node : page) {
      if (node != null && inUse.test(node)) {
        return true;
      }
    }
    return false;
  }

  private void drop(MemberNode parent, int number) {
    MemberNode[] page = parent.pages.remove(number);
    if (page == null) {
      return;
    }
    for (MemberNode node : page) {
      if (node != null) {
        byHandle.remove(node.handle(), node);
        dropPages(node);
      }
    }
  }

  /** Forgets all children of a node, which is given a new number of them. */
  void dropPages(MemberNode node) {
    for (Integer page : new ArrayList<>(node.pages.keySet())) {
      used.remove(new Key(node, page));
      drop(node, page);
    }
  }

  /** Takes a node with its children out of its place, for it to be put elsewhere. */
  MemberNode detach(int handle) {
    MemberNode node = byHandle.get(handle);
    if (node != null && node.parent != null) {
      MemberNode[] page = node.parent.pages.get(node.index / PAGE);
      if (page != null && page[node.index % PAGE] == node) {
        page[node.index % PAGE] = null;
      }
    }
    return node;
  }

  /** Puts a node at a place. */
  void attach(MemberNode node, MemberNode parent, int index) {
    child(parent, index);
    node.parent = parent;
    node.index = index;
    parent.pages.get(index / PAGE)[index % PAGE] = node;
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

  /** Tells that other children stand below a node. */
  void fireChildrenChanged(MemberNode node) {
    TreeModelEvent event = new TreeModelEvent(this, node.path());
    listeners.forEach(listener -> listener.treeStructureChanged(event));
  }

  /** The tree's editor was given a name; what becomes of it is the business of its listener. */
  @Override
  public void valueForPathChanged(TreePath path, Object name) {
    MemberNode node = (MemberNode) path.getLastPathComponent();
    if (node.member != null && !node.member.name().equals(name)) {
      renamed.rename(node.member, (String) name);
    }
  }

  /** Hears of names that were typed. */
  interface Renamed {
    void rename(Member member, String name);
  }

  private Renamed renamed = (member, name) -> {};

  void onRename(Renamed listener) {
    renamed = listener;
  }
}
