package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.List;
import java.util.Optional;
import java.util.function.BiFunction;
import java.util.function.Function;
import java.util.stream.Collectors;
import javax.swing.JMenu;
import javax.swing.JPopupMenu;
import javax.swing.KeyStroke;

/** The commands that edit members in the tree. */
final class TreeCommands {
  private static final Details PLACE = Details.NONE.place();
  private static final String NEW_NAME = "New member";
  private static final String NEW_DIMENSION = "New dimension";

  private final EditorWindow window;
  private final Workspace workspace;
  private final OutlineTree tree;
  private final JMenu menu;
  private final JPopupMenu popup = new JPopupMenu();
  /** The title of the step that made a member which is being named; null when none is. */
  private String naming;

  TreeCommands(EditorWindow window) {
    this.window = window;
    this.workspace = window.workspace;
    this.tree = window.tree;
    menu = window.commands.menu("Edit");
    tree.renamed = this::rename;
    tree.cancelled = this::takeBack;
    // The window's commands have these keys.
    for (String keys : new String[] {"ctrl C", "ctrl X", "ctrl V", "COPY", "CUT", "PASTE", "F2"}) {
      tree.getInputMap().put(KeyStroke.getKeyStroke(keys), "none");
    }
    addCreating();
    menu.addSeparator();
    popup.addSeparator();
    addClipboard();
    menu.addSeparator();
    popup.addSeparator();
    addMoving();
    tree.setComponentPopupMenu(popup);
  }

  private Commands.Command add(String name, String keys, String description, Runnable run) {
    return window.commands.add(menu, name, keys, description, () -> tree.whenRead(run)).onTree()
        .when(() -> !workspace.selection().isEmpty() && workspace.isEditable());
  }

  private void addCreating() {
    add("Add Dimension", null, "Make a dimension behind the others",
        () -> create(Target.lastBelow(null), NEW_DIMENSION)).when(workspace::isEditable);
    popup.add(add("Add Child", "ctrl shift N", "Make a member below the selected one",
        () -> create(Target.lastBelow(Ref.to(first())), NEW_NAME)));
    popup.add(add("Add Sibling", "ctrl N", "Make a member behind the selected one",
        () -> create(Target.behind(Ref.to(last())),
            first().isDimension() ? NEW_DIMENSION : NEW_NAME)));
    popup.add(add("Rename", "F2", "Change the name of the selected member", () -> {
      naming = null;
      tree.editName();
    }));
    popup.add(add("Delete", "DELETE", "Delete the selected members with all below them",
        this::delete));
  }

  private void addClipboard() {
    popup.add(add("Cut", "ctrl X", "Take the selected members along to where they are pasted",
        () -> tree.transfer.put(true)));
    popup.add(add("Copy", "ctrl C", "Copy the selected members to where they are pasted",
        () -> tree.transfer.put(false)));
    popup.add(add("Paste Below", "ctrl V", "Paste below the selected member",
        () -> tree.transfer.paste(Target.lastBelow(Ref.to(first())))));
    add("Paste Before", "ctrl shift B", "Paste before the selected member",
        () -> tree.transfer.paste(Target.before(Ref.to(first()))));
    popup.add(add("Paste After", "ctrl shift V", "Paste behind the selected member",
        () -> tree.transfer.paste(Target.behind(Ref.to(last())))));
  }

  private void addMoving() {
    add("Move Up", "alt UP", "Move the selected members before the one above",
        () -> move(TreeCommands::previous, Target::before));
    add("Move Down", "alt DOWN", "Move the selected members behind the next one",
        () -> move(TreeCommands::next, Target::behind));
    add("Move In", "alt RIGHT", "Move the selected members below the one above",
        () -> move((outline, members) -> members.get(0).isDimension() ? null
            : previous(outline, members), Target::lastBelow));
    add("Move Out", "alt LEFT", "Move the selected members behind their parent",
        () -> move((outline, members) -> members.get(0).generation() < 3 ? null
            : Ref.toHandle(outline.read(members.get(0), PLACE).parentHandle()), Target::behind));
    menu.addSeparator();
    popup.add(add("Sort Children A to Z", null, "Sort the children of the selected member by name",
        () -> workspace.edit(MemberEdits.sort(first(), true))));
    add("Sort Children Z to A", null, "Sort the children in the reverse order",
        () -> workspace.edit(MemberEdits.sort(first(), false)));
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

  /** A member whose name was given up is not to be. */
  private void takeBack() {
    Edit last = workspace.history.toUndo();
    if (last != null && last.title().equals(naming)) {
      workspace.undo();
    }
    naming = null;
  }

  // ---- Deleting ----

  private void delete() {
    List<Member> members = tree.transfer.selected();
    workspace.read(() -> MemberEdits.count(workspace.outline, members), count -> {
      long below = count - members.size();
      if (count == 1 || Ask.confirm(window.frame, MemberEdits.title("Delete", members)
          + (below == 0 ? "?" : String.format(" with %,d below?", below)), "Delete")) {
        workspace.edit(MemberEdits.delete(members));
      }
    });
  }

  // ---- Moving by keys ----

  /** Moves the selected members to beside or below another, which is null where there is none. */
  private void move(
      BiFunction<Outline, List<Member>, Ref> neighbour, Function<Ref, Target> target) {
    List<Member> members = tree.transfer.selected();
    // Held down, the key comes again before the move is made.
    workspace.edit(MemberEdits.move(members, outline ->
        Optional.ofNullable(neighbour.apply(outline, members)).map(target).orElse(null)));
  }

  private static Ref previous(Outline outline, List<Member> members) {
    return Ref.toHandle(outline.read(members.get(0), PLACE).previousHandle());
  }

  private static Ref next(Outline outline, List<Member> members) {
    Member last = outline.read(members.get(members.size() - 1), PLACE);
    long next = outline.position(last) + 1;
    List<Member> found = last.parentHandle() == EditContext.DIMENSIONS
        ? outline.dimensions().stream().skip(next).collect(Collectors.toList())
        : outline.page(outline.read(new int[] {last.parentHandle()}, Details.NONE).get(0),
            next, 1, Details.NONE).members();
    return found.isEmpty() ? null : Ref.to(found.get(0));
  }
}
