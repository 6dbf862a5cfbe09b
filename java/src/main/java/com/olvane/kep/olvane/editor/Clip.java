package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;
import java.awt.Toolkit;
import java.awt.datatransfer.DataFlavor;
import java.awt.datatransfer.Transferable;
import java.awt.datatransfer.UnsupportedFlavorException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.stream.Collectors;

/** Members on the clipboard or under the mouse; other programs get their names, one a line. */
final class Clip implements Transferable {
  /** Members of an outline that is open in this program. */
  static final DataFlavor MEMBERS = new DataFlavor(
      DataFlavor.javaJVMLocalObjectMimeType + ";class=\"" + Clip.class.getName() + "\"",
      "Members");

  /** The handles of the members that were cut, until they are pasted. */
  private static Set<Integer> cut = Collections.emptySet();

  private final Workspace workspace;
  final List<Member> members;

  Clip(Workspace workspace, List<Member> members) {
    this.workspace = workspace;
    this.members = new ArrayList<>(members);
  }

  /** Puts members on the clipboard, to be copied, or with {@code cutting} to be moved. */
  static void put(Workspace workspace, List<Member> members, boolean cutting) {
    Toolkit.getDefaultToolkit().getSystemClipboard()
        .setContents(new Clip(workspace, members), null);
    cut = cutting
        ? members.stream().map(Member::handle).collect(Collectors.toCollection(HashSet::new))
        : Collections.emptySet();
  }

  /** What is on the clipboard of members of this outline; null where nothing is. */
  static Clip get(Workspace workspace) {
    return of(workspace, Toolkit.getDefaultToolkit().getSystemClipboard().getContents(null));
  }

  /** What is under the mouse of members of this outline; null where nothing is. */
  static Clip of(Workspace workspace, Transferable transferable) {
    try {
      if (transferable != null && transferable.isDataFlavorSupported(MEMBERS)) {
        Clip clip = (Clip) transferable.getTransferData(MEMBERS);
        return clip.workspace == workspace ? clip : null;
      }
    } catch (UnsupportedFlavorException | java.io.IOException | IllegalStateException e) {
      // It is gone from the clipboard.
    }
    return null;
  }

  /** Whether a member was cut and not pasted yet. */
  static boolean isCut(Member member) {
    return cut.contains(member.handle());
  }

  /** Whether these members were cut. */
  boolean isCut() {
    return !cut.isEmpty() && members.stream().allMatch(Clip::isCut);
  }

  /** What was cut has been moved or is to stay. */
  static void forgetCut() {
    cut = Collections.emptySet();
  }

  @Override
  public DataFlavor[] getTransferDataFlavors() {
    return new DataFlavor[] {MEMBERS, DataFlavor.stringFlavor};
  }

  @Override
  public boolean isDataFlavorSupported(DataFlavor flavor) {
    return flavor.equals(MEMBERS) || flavor.equals(DataFlavor.stringFlavor);
  }

  @Override
  public Object getTransferData(DataFlavor flavor) throws UnsupportedFlavorException {
    if (flavor.equals(MEMBERS)) {
      return this;
    }
    if (flavor.equals(DataFlavor.stringFlavor)) {
      return members.stream().map(Member::name).collect(Collectors.joining("\n"));
    }
    throw new UnsupportedFlavorException(flavor);
  }
}
