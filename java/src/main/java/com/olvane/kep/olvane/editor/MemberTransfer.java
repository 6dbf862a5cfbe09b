package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;
import java.awt.Toolkit;
import java.awt.datatransfer.Clipboard;
import java.awt.datatransfer.ClipboardOwner;
import java.awt.datatransfer.StringSelection;
import java.awt.datatransfer.Transferable;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.stream.Collectors;
import javax.swing.JComponent;
import javax.swing.JTree;
import javax.swing.TransferHandler;

/**
 * Takes members elsewhere in their outline: over the clipboard, and by dragging them on a member to
 * go below it or between two to go there. Other programs get their names, one a line.
 */
final class MemberTransfer extends TransferHandler implements ClipboardOwner {
  private final OutlineTree tree;
  private final Workspace workspace;
  private List<Member> dragged = Collections.emptyList();
  private List<Member> onClipboard = Collections.emptyList();
  private boolean cut;

  /** The dimension that members go below which are over the gap behind it; null for none. */
  MemberNode box;

  MemberTransfer(OutlineTree tree, Workspace workspace) {
    this.tree = tree;
    this.workspace = workspace;
  }

  /** The selected members, without those below another of them. */
  List<Member> selected() {
    Set<MemberNode> chosen = new HashSet<>(tree.selectedNodes());
    List<Member> members = new ArrayList<>();
    for (MemberNode node : tree.selectedNodes()) {
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

  private static StringSelection names(List<Member> members) {
    return new StringSelection(
        members.stream().map(Member::name).collect(Collectors.joining("\n")));
  }

  // ---- The clipboard ----

  /** Puts the selected members on the clipboard, to be copied or, once, to be moved. */
  void put(boolean cutting) {
    hold(selected(), cutting);
    Toolkit.getDefaultToolkit().getSystemClipboard().setContents(names(onClipboard), this);
  }

  private void hold(List<Member> members, boolean cutting) {
    onClipboard = members;
    cut = cutting;
    tree.repaint();
  }

  @Override
  public void lostOwnership(Clipboard clipboard, Transferable contents) {
    hold(Collections.emptyList(), false);
  }

  /** Whether a member was cut and not pasted yet. */
  boolean isCut(Member member) {
    return cut && onClipboard.contains(member);
  }

  /** Pastes what is on the clipboard. */
  void paste(Target target) {
    if (onClipboard.isEmpty()) {
      tree.complaint.accept("There are no members of this outline on the clipboard.");
    } else if (cut) {
      workspace.edit(MemberEdits.move(onClipboard, target), () -> hold(onClipboard, false));
    } else {
      workspace.edit(MemberEdits.copy(onClipboard, target));
    }
  }

  // ---- Dragging ----

  @Override
  public int getSourceActions(JComponent component) {
    return COPY_OR_MOVE;
  }

  @Override
  protected Transferable createTransferable(JComponent component) {
    dragged = tree.unreadSelected ? Collections.emptyList() : selected();
    return dragged.isEmpty() ? null : names(dragged);
  }

  @Override
  protected void exportDone(JComponent source, Transferable data, int action) {
    dragged = Collections.emptyList();
    box = null;
    tree.repaint();
  }

  @Override
  public boolean canImport(TransferSupport support) {
    box = null;
    boolean possible = support.isDrop() && !dragged.isEmpty() && target(support) != null;
    support.setShowDropLocation(possible && box == null);
    tree.repaint();
    return possible;
  }

  @Override
  public boolean importData(TransferSupport support) {
    Target target = target(support);
    if (support.getDropAction() == COPY) {
      workspace.edit(MemberEdits.copy(dragged, target));
    } else {
      workspace.edit(MemberEdits.move(dragged, target));
    }
    return true;
  }

  /** Where members go that are dropped; null where none can go. */
  private Target target(TransferSupport support) {
    JTree.DropLocation to = (JTree.DropLocation) support.getDropLocation();
    if (to.getPath() == null) {
      return null;
    }
    MemberNode parent = MemberNode.of(to.getPath());
    int index = to.getChildIndex();
    boolean dimensions = dragged.stream().anyMatch(Member::isDimension);
    MemberNode above = index > 0 ? tree.model.child(parent, index - 1) : null;
    MemberNode at = MemberNode.of(tree.getClosestPathForLocation(0, to.getDropPoint().y));
    if (!dimensions && at == above && tree.isExpanded(at.path())
        && !dragged.contains(at.member)) {
      // What is below it comes before the gap behind it.
      box = above;
      return Target.firstBelow(Ref.to(above.member));
    }
    if (parent.isRoot() ? !dimensions : dimensions) {
      // Dimensions only go between dimensions, where members go behind what is above the gap.
      return dimensions ? null : behindRowAbove(index);
    }
    if (index < 0) {
      return parent.member == null ? null : Target.lastBelow(Ref.to(parent.member));
    }
    return above == null ? Target.firstBelow(Ref.toHandle(parent.handle())) : behind(above);
  }

  private static Target behind(MemberNode node) {
    return node.member == null ? null : Target.behind(Ref.to(node.member));
  }

  private Target behindRowAbove(int dimension) {
    MemberNode root = tree.model.getRoot();
    int below = dimension < root.childCount
        ? tree.getRowForPath(tree.model.child(root, dimension).path()) : tree.getRowCount();
    if (below < 1) {
      return null;
    }
    MemberNode above = MemberNode.of(tree.getPathForRow(below - 1));
    if (!above.parent.isRoot()) {
      return behind(above);
    }
    box = above;
    return Target.lastBelow(Ref.toHandle(above.handle()));
  }
}
