package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.text.NumberFormat;
import java.util.Collections;
import java.util.List;
import javax.swing.Action;
import javax.swing.JPopupMenu;
import javax.swing.KeyStroke;
import javax.swing.tree.TreePath;

/** The commands that edit members in the tree. */
final class TreeCommands {
  private static final String EDIT = "Edit";
  private static final String NEW_NAME = "New member";

  private final EditorWindow window;
  private final Workspace workspace;
  private final OutlineTree tree;
  private final JPopupMenu popup = new JPopupMenu();
  /** The title of the step that made a member which is being named; null when none is. */
  private String naming;

  TreeCommands(EditorWindow window, OutlineTree tree) {
    this.window = window;
    this.workspace = window.workspace();
    this.tree = tree;
    tree.renamed = this::rename;
    // The window's commands have these keys.
    for (String keys : new String[] {"ctrl C", "ctrl X", "ctrl V", "COPY", "CUT", "PASTE", "F2"}) {
      tree.getInputMap().put(KeyStroke.getKeyStroke(keys), "none");
    }
    addCreating();
    window.addSeparator(EDIT);
    addClipboard();
    window.addSeparator(EDIT);
    addMoving();
    addPopup();
  }

  private void add(String id, String name, String keys, String description, Runnable run) {
    addFor(id, name, keys, description, run, true);
  }

  private void addFor(String id, String name, String keys, String description, Runnable run,
      boolean inPopup) {
    Action command = window.commands().addForTree(id, name, keys, description,
        () -> !workspace.selection().isEmpty() && workspace.isEditable(), run);
    window.addToMenu(EDIT, command);
    if (inPopup) {
      popup.add(command);
    }
  }

  private void addCreating() {
    window.addToMenu(EDIT, window.commands().addForTree("add-dimension", "Add Dimension", null,
        "Make a dimension behind the others", workspace::isEditable,
        () -> create(Target.lastBelow(null), "New dimension")));
    add("add-child", "Add Child", "ctrl shift N", "Make a member below the selected one",
        () -> create(Target.lastBelow(Ref.to(first())), NEW_NAME));
    add("add-sibling", "Add Sibling", "ctrl N", "Make a member behind the selected one",
        () -> create(Target.behind(Ref.to(last())),
            first().isDimension() ? "New dimension" : NEW_NAME));
    add("rename", "Rename", "F2", "Change the name of the selected member", () -> {
      naming = null;
      tree.editName();
    });
    add("delete", "Delete", "DELETE", "Delete the selected members with all below them",
        this::delete);
  }

  private void addClipboard() {
    popup.addSeparator();
    add("cut", "Cut", "ctrl X", "Take the selected members along to where they are pasted",
        () -> put(true));
    add("copy", "Copy", "ctrl C", "Copy the selected members to where they are pasted",
        () -> put(false));
    add("paste", "Paste Below", "ctrl V", "Paste below the selected member",
        () -> paste(Target.lastBelow(Ref.to(first()))));
    addFor("paste-before", "Paste Before", "ctrl shift B", "Paste before the selected member",
        () -> paste(Target.before(Ref.to(first()))), false);
    add("paste-behind", "Paste After", "ctrl shift V", "Paste behind the selected member",
        () -> paste(Target.behind(Ref.to(last()))));
  }

  private void addMoving() {
    popup.addSeparator();
    addFor("move-up", "Move Up", "alt UP", "Move the selected members before the one above",
        () -> move(this::beforePrevious), false);
    addFor("move-down", "Move Down", "alt DOWN", "Move the selected members behind the next one",
        () -> move(this::behindNext), false);
    addFor("move-in", "Move In", "alt RIGHT", "Move the selected members below the one above",
        () -> move(this::belowPrevious), false);
    addFor("move-out", "Move Out", "alt LEFT", "Move the selected members behind their parent",
        () -> move(this::behindParent), false);
    window.addSeparator(EDIT);
    add("sort", "Sort Children A to Z", null, "Sort the children of the selected member by name",
        () -> workspace.edit(MemberEdits.sort(first(), true)));
    addFor("sort-down", "Sort Children Z to A", null, "Sort the children in the reverse order",
        () -> workspace.edit(MemberEdits.sort(first(), false)), false);
    window.addToMenu(EDIT, window.commands().addForTree("sort-dimensions", "Sort Dimensions", null,
        "Sort the dimensions by name, those of attributes behind the others",
        workspace::isEditable, () -> workspace.edit(MemberEdits.sort(null, true))));
  }

  private void addPopup() {
    tree.addMouseListener(new MouseAdapter() {
      @Override
      public void mousePressed(MouseEvent event) {
        show(event);
      }

      @Override
      public void mouseReleased(MouseEvent event) {
        show(event);
      }

      private void show(MouseEvent event) {
        TreePath path = tree.getClosestPathForLocation(event.getX(), event.getY());
        if (event.isPopupTrigger() && path != null) {
          if (!tree.isPathSelected(path)) {
            tree.setSelectionPath(path);
          }
          tree.requestFocusInWindow();
          popup.show(tree, event.getX(), event.getY());
        }
      }
    });
    tree.setComponentPopupMenu(null);
  }

  private List<Member> chosen() {
    return MemberTransfer.topMost(tree.selectedNodes());
  }

  private Member first() {
    return workspace.selection().get(0);
  }

  private Member last() {
    return workspace.selection().get(workspace.selection().size() - 1);
  }

  // ---- Making and naming ----

  private void create(Target target, String name) {
    Edit edit = MemberEdits.create(target, name);
    workspace.edit(edit, () -> {
      String title = edit.title();
      tree.reveal(workspace.selection(), () -> {
        naming = title;
        tree.requestFocusInWindow();
        tree.editName();
      });
    });
  }

  private void rename(Member member, String name) {
    Edit edit = MemberEdits.rename(member, name);
    if (naming != null && naming.equals("Create " + member.name())) {
      workspace.editFurther(edit, "Create " + name);
    } else {
      workspace.edit(edit);
    }
    naming = null;
  }

  // ---- Deleting ----

  private void delete() {
    List<Member> members = chosen();
    workspace.read(() -> MemberEdits.count(workspace.outline(), members), count -> {
      if (count == members.size() || window.confirm(MemberEdits.title("Delete", members) + " with "
          + NumberFormat.getIntegerInstance().format(count - members.size())
          + " below?", "Delete")) {
        workspace.edit(MemberEdits.delete(members));
      }
    });
  }

  // ---- The clipboard ----

  private void put(boolean cutting) {
    Clip.put(workspace, chosen(), cutting);
    tree.repaint();
  }

  private void paste(Target target) {
    Clip clip = Clip.get(workspace);
    if (clip == null) {
      window.status("There are no members of this outline on the clipboard.");
      return;
    }
    if (clip.isCut()) {
      workspace.edit(MemberEdits.move(clip.members(), target), Clip::forgetCut);
    } else {
      workspace.edit(MemberEdits.copy(clip.members(), target));
    }
  }

  // ---- Moving by keys ----

  private interface Destination {
    /** {@return where to, null where there is nowhere} */
    Target of(Outline outline, List<Member> members);
  }

  private void move(Destination destination) {
    List<Member> members = chosen();
    workspace.read(
        () -> Collections.singletonList(destination.of(workspace.outline(), members)), target -> {
          if (target.get(0) != null) {
            workspace.edit(MemberEdits.move(members, target.get(0)));
          }
        });
  }

  private static Member placed(Outline outline, Member member) {
    return outline.read(member, Details.NONE.place());
  }

  private Target beforePrevious(Outline outline, List<Member> members) {
    int previous = placed(outline, members.get(0)).previousHandle();
    return previous == 0 ? null : Target.before(Ref.toHandle(previous));
  }

  private Target belowPrevious(Outline outline, List<Member> members) {
    int previous = placed(outline, members.get(0)).previousHandle();
    return previous == 0 || members.get(0).isDimension()
        ? null : Target.lastBelow(Ref.toHandle(previous));
  }

  private Target behindParent(Outline outline, List<Member> members) {
    return members.get(0).generation() < 3
        ? null : Target.behind(Ref.toHandle(placed(outline, members.get(0)).parentHandle()));
  }

  private Target behindNext(Outline outline, List<Member> members) {
    Member last = placed(outline, members.get(members.size() - 1));
    long next = outline.position(last) + 1;
    List<Member> found;
    if (last.parentHandle() == 0) {
      List<Member> all = outline.dimensions();
      found = next < all.size() ? all.subList((int) next, (int) next + 1)
          : Collections.<Member>emptyList();
    } else {
      Member parent = outline.read(new int[] {last.parentHandle()}, Details.NONE).get(0);
      found = next < parent.childCount() ? outline.page(parent, next, 1, Details.NONE).members()
          : Collections.<Member>emptyList();
    }
    return found.isEmpty() ? null : Target.behind(Ref.to(found.get(0)));
  }
}
