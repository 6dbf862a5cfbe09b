package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import javax.swing.ButtonGroup;
import javax.swing.JMenu;
import javax.swing.JRadioButtonMenuItem;

/** The commands that change what is shown, and nothing in the outline. */
final class ViewCommands {
  private static final int LAST_GENERATION = 7;
  /** More members than these are not opened at once. */
  private static final int OPENED = 5000;

  private final EditorWindow window;
  private final Workspace workspace;
  private final OutlineTree tree;
  private final JMenu aliases = new JMenu("Aliases Shown");

  ViewCommands(EditorWindow window) {
    this.window = window;
    this.workspace = window.workspace;
    this.tree = window.tree;
    Commands commands = window.commands;
    JMenu view = commands.menu("View");
    commands.add(view, "Jump to Selection", "ctrl J", "Bring the selected member into view",
        () -> tree.reveal(workspace.selection(), tree::requestFocusInWindow))
        .when(() -> !workspace.selection().isEmpty());
    JMenu expand = new JMenu("Expand to Generation");
    for (int generation = 2; generation <= LAST_GENERATION; generation++) {
      int last = generation;
      commands.add(expand, "Generation " + last, "ctrl " + last,
          "Open members until generation " + last + " is seen", () -> expand(last));
    }
    view.add(expand);
    commands.add(view, "Collapse All", "ctrl 1", "Close all members", tree::collapseAll);
    view.addSeparator();
    view.add(aliases);
    view.add(themes());
    workspace.changed.hear(change -> {
      if (change.aliasTablesChanged) {
        listAliasTables();
      }
    });
    listAliasTables();
  }

  // ---- Expanding ----

  private void expand(int generation) {
    Outline outline = workspace.outline;
    workspace.read(() -> {
      List<Integer> toOpen = toOpen(outline, generation);
      return toOpen.size() > OPENED ? null
          : new TreeReading(outline, tree.model.details, toOpen);
    }, read -> {
      if (read == null) {
        window.status("More than " + OPENED + " members would be opened;"
            + " choose a lower generation.");
      } else {
        tree.open(read);
      }
    });
  }

  /** The members to be opened, parents first; a few more than allowed when there are too many. */
  private static List<Integer> toOpen(Outline outline, int generation) {
    List<Member> found = new ArrayList<>(outline.dimensions());
    for (int i = 0; i < found.size() && found.size() <= OPENED; i++) {
      if (found.get(i).generation() + 1 < generation) {
        try (Stream<Member> children = outline.children(found.get(i), Details.NONE)) {
          children.filter(Member::hasChildren).limit(OPENED + 1).forEach(found::add);
        }
      }
    }
    return found.stream().map(Member::handle).collect(Collectors.toList());
  }

  // ---- Aliases and colours ----

  private void listAliasTables() {
    workspace.read(() -> workspace.outline.aliasTables().names(), names -> {
      aliases.removeAll();
      ButtonGroup group = new ButtonGroup();
      if (!names.contains(tree.aliasTable()) && !tree.aliasTable().isEmpty()) {
        tree.setAliasTable(names.get(0));
      }
      addChoice(aliases, group, "None", tree.aliasTable().isEmpty(), () -> tree.setAliasTable(""));
      names.forEach(name -> addChoice(aliases, group, name, name.equals(tree.aliasTable()),
          () -> tree.setAliasTable(name)));
    });
  }

  private JMenu themes() {
    JMenu themes = new JMenu("Colours");
    ButtonGroup group = new ButtonGroup();
    for (Palette palette : Palette.values()) {
      String name = palette == Palette.LIGHT ? "Light" : "Dark";
      addChoice(themes, group, name, Theme.palette() == palette, () -> {
        Theme.install(palette);
        window.editor.settings.put("theme", name.toLowerCase(Locale.ROOT));
      });
    }
    return themes;
  }

  private static void addChoice(
      JMenu menu, ButtonGroup group, String text, boolean chosen, Runnable choose) {
    JRadioButtonMenuItem item = new JRadioButtonMenuItem(text, chosen);
    item.addActionListener(event -> choose.run());
    group.add(item);
    menu.add(item);
  }
}
