package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;
import java.awt.datatransfer.Transferable;
import java.util.ArrayList;
import java.util.List;
import java.util.Set;
import java.util.stream.Collectors;
import javax.swing.JComponent;
import javax.swing.JTree;
import javax.swing.Timer;
import javax.swing.TransferHandler;
import javax.swing.tree.TreePath;

/** Drags members in the tree: on a member to go below it, between two to go there. */
final class MemberTransfer extends TransferHandler {
  private static final long serialVersionUID = 1;
  /** A collapsed member opens when the mouse rests on it so long. */
  private static final int OPEN_AFTER_MILLIS = 700;

  private final OutlineTree tree;
  private final transient Workspace workspace;
  private final Timer opening;
  private transient TreePath under;
  /** Whether dimensions are dragged, which only go between dimensions. */
  private boolean dimensions;

  MemberTransfer(OutlineTree tree, Workspace workspace) {
    this.tree = tree;
    this.workspace = workspace;
    opening = new Timer(OPEN_AFTER_MILLIS, event -> {
      if (under != null && tree.getDropLocation() != null) {
        tree.expandPath(under);
      }
    });
    opening.setRepeats(false);
  }

  @Override
  public int getSourceActions(JComponent component) {
    return COPY_OR_MOVE;
  }

  @Override
  protected Transferable createTransferable(JComponent component) {
    List<Member> members = topMost(tree.selectedNodes());
    dimensions = members.stream().anyMatch(Member::isDimension);
    return members.isEmpty() ? null : new Clip(workspace, members);
  }

  /** The members of nodes, without those below another of them. */
  static List<Member> topMost(List<MemberNode> nodes) {
    Set<MemberNode> chosen = nodes.stream().collect(Collectors.toSet());
    List<Member> members = new ArrayList<>();
    for (MemberNode node : nodes) {
      MemberNode above = node.parent;
      while (above != null && !chosen.contains(above)) {
        above = above.parent;
      }
      if (above == null && node.member != null) {
        members.add(node.member);
      }
    }
    return members;
  }

  @Override
  public boolean canImport(TransferSupport support) {
    if (!support.isDrop() || !support.isDataFlavorSupported(Clip.MEMBERS)) {
      return false;
    }
    JTree.DropLocation to = (JTree.DropLocation) support.getDropLocation();
    waitToOpen(to);
    if (target(to) == null) {
      return false;
    }
    support.setShowDropLocation(true);
    return true;
  }

  private void waitToOpen(JTree.DropLocation to) {
    TreePath path = to.getChildIndex() < 0 ? to.getPath() : null;
    if (path == null || !path.equals(under)) {
      under = path;
      if (path != null && !tree.isExpanded(path)) {
        opening.restart();
      } else {
        opening.stop();
      }
    }
  }

  /** Where members go that are dropped; null where none can go. */
  private Target target(JTree.DropLocation to) {
    if (to.getPath() == null) {
      return null;
    }
    MemberNode parent = (MemberNode) to.getPath().getLastPathComponent();
    int index = to.getChildIndex();
    if (dimensions && !parent.isRoot()) {
      return null;
    }
    if (!dimensions && parent.isRoot()) {
      return behindRowAbove(index);
    }
    if (index < 0) {
      return parent.member == null ? null : Target.lastBelow(Ref.to(parent.member));
    }
    if (index == 0) {
      return Target.firstBelow(parent.isRoot() ? null : Ref.to(parent.member));
    }
    MemberNode before = tree.model.child(parent, index - 1);
    return before.member == null ? null : Target.behind(Ref.to(before.member));
  }

  /** Between two dimensions, members go behind what stands above the gap. */
  private Target behindRowAbove(int dimension) {
    MemberNode root = tree.model.getRoot();
    int below = dimension < root.childCount
        ? tree.getRowForPath(tree.model.child(root, dimension).path()) : tree.getRowCount();
    if (below < 1) {
      return null;
    }
    MemberNode above = (MemberNode) tree.getPathForRow(below - 1).getLastPathComponent();
    return above.member == null ? null
        : above.member.isDimension() ? Target.lastBelow(Ref.to(above.member))
            : Target.behind(Ref.to(above.member));
  }

  @Override
  public boolean importData(TransferSupport support) {
    Clip clip = Clip.of(workspace, support.getTransferable());
    Target target = target((JTree.DropLocation) support.getDropLocation());
    if (clip == null || target == null) {
      return false;
    }
    workspace.edit(support.getDropAction() == COPY
        ? MemberEdits.copy(clip.members, target) : MemberEdits.move(clip.members, target));
    return true;
  }

}
