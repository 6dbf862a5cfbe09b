package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;
import java.util.HashMap;
import java.util.Map;
import javax.swing.tree.TreePath;

/**
 * A place in the tree with the member that stands there, once it has been read. Children are held
 * in pages, those that were looked at last.
 */
final class MemberNode {
  /** Children that are read together. */
  static final class Page {
    static final int SIZE = 64;

    final MemberNode parent;
    final int number;
    final MemberNode[] nodes;

    Page(MemberNode parent, int number) {
      this.parent = parent;
      this.number = number;
      nodes = new MemberNode[Math.min(SIZE, parent.childCount - number * SIZE)];
      for (int i = 0; i < nodes.length; i++) {
        nodes[i] = new MemberNode(parent, number * SIZE + i);
      }
    }
  }

  /** The node above; null for the root, whose children are the dimensions. */
  final MemberNode parent;
  /** The place among the siblings. */
  final int index;
  /** The member; null for the root and for one that has not been read yet. */
  Member member;
  /** The number of children. */
  int childCount;
  /** The pages of children, by number. */
  final Map<Integer, Page> pages = new HashMap<>();

  MemberNode(MemberNode parent, int index) {
    this.parent = parent;
    this.index = index;
  }

  /** The handle of the member, 0 for the root and for one that is not read yet. */
  int handle() {
    return member == null ? 0 : member.handle();
  }

  boolean isRoot() {
    return parent == null;
  }

  /** The way from the root. */
  TreePath path() {
    return parent == null ? new TreePath(this) : parent.path().pathByAddingChild(this);
  }

  /** The node at the end of a path. */
  static MemberNode of(TreePath path) {
    return (MemberNode) path.getLastPathComponent();
  }

  /** The name, as assistive technology and the tests read it. */
  @Override
  public String toString() {
    return member == null ? "\u2026" : member.name();
  }
}
