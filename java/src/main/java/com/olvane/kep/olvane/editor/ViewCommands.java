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
  private static final String VIEW = "View";
  private static final int GENERATIONS = 6;
  /** More members than these are not opened at once. */
  private static final int OPENED = 5000;

  private final EditorWindow window;
  private final OutlineTree tree;
  private final JMenu aliases = new JMenu("Aliases Shown");

  ViewCommands(EditorWindow window) {
    this.window = window;
    this.tree = window.tree();
    Commands commands = window.commands();
    window.addToMenu(VIEW, commands.add("jump", "Jump to Selection", "ctrl J",
        "Bring the selected member into view", () -> !window.workspace().selection().isEmpty(),
        () -> tree.reveal(window.workspace().selection(), tree::requestFocusInWindow)));
    JMenu expand = new JMenu("Expand to Generation");
    for (int generation = 2; generation < 2 + GENERATIONS; generation++) {
      int last = generation;
      expand.add(commands.add("expand-" + generation, "Generation " + generation,
          "ctrl " + generation, "Open members until generation " + generation + " is seen",
          () -> expand(last)));
    }
    window.menu(VIEW).add(expand);
    window.addToMenu(VIEW, commands.add("collapse", "Collapse All", "ctrl 1",
        "Close all members", tree::collapseAll));
    window.addSeparator(VIEW);
    window.menu(VIEW).add(aliases);
    window.workspace().changed.hear(change -> {
      if (change.aliasTablesChanged) {
        listAliasTables();
      }
    });
    addThemes();
    listAliasTables();
  }

  // ---- Expanding ----

  private void expand(int generation) {
    Outline outline = window.workspace().outline();
    window.workspace().read(() -> {
      List<Member> toOpen = toOpen(outline, generation);
      return toOpen.size() > OPENED ? null : new TreeReading(outline, tree.pagedModel().details,
          toOpen.stream().map(Member::handle).collect(Collectors.toList()));
    }, places -> {
      if (places == null) {
        window.status("More than " + OPENED + " members would be opened;"
            + " choose a lower generation.");
      } else {
        tree.open(places);
      }
    });
  }

  /** The members to be opened, parents first; a few more than allowed when there are too many. */
  private static List<Member> toOpen(Outline outline, int generation) {
    List<Member> found = new ArrayList<>(outline.dimensions());
    for (int i = 0; i < found.size() && found.size() <= OPENED; i++) {
      if (found.get(i).generation() + 1 < generation) {
        try (Stream<Member> children = outline.children(found.get(i), Details.NONE)) {
          children.filter(Member::hasChildren).limit(OPENED + 1).forEach(found::add);
        }
      }
    }
    return found;
  }

  // ---- Aliases and colours ----

  private void listAliasTables() {
    window.workspace().read(() -> window.workspace().outline().aliasTables().names(), names -> {
      aliases.removeAll();
      ButtonGroup group = new ButtonGroup();
      if (!names.contains(tree.aliasTable()) && !tree.aliasTable().isEmpty()) {
        tree.setAliasTable(names.get(0));
      }
      addAliasTable(group, "None", "");
      names.forEach(name -> addAliasTable(group, name, name));
    });
  }

  private void addAliasTable(ButtonGroup group, String text, String table) {
    JRadioButtonMenuItem item = new JRadioButtonMenuItem(text, table.equals(tree.aliasTable()));
    item.addActionListener(event -> tree.setAliasTable(table));
    group.add(item);
    aliases.add(item);
  }

  private void addThemes() {
    JMenu themes = new JMenu("Colours");
    ButtonGroup group = new ButtonGroup();
    for (Palette palette : Palette.values()) {
      String name = palette == Palette.LIGHT ? "Light" : "Dark";
      JRadioButtonMenuItem item =
          new JRadioButtonMenuItem(name, Theme.palette() == palette);
      item.addActionListener(event -> {
        Theme.install(palette);
        window.editor().settings().put("theme", name.toLowerCase(Locale.ROOT));
      });
      group.add(item);
      themes.add(item);
    }
    window.menu(VIEW).add(themes);
  }
}
