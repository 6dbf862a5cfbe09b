package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.List;
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
    window.workspace().addListener(new WorkspaceListener() {
      @Override
      public void changed(OutlineChange change) {
        if (change.aliasTablesChanged()) {
          listAliasTables();
        }
      }
    });
    addThemes();
    listAliasTables();
  }

  // ---- Expanding ----

  private void expand(int generation) {
    window.workspace().read(
        () -> toOpen(window.workspace().outline(), generation), members -> {
          if (members == null) {
            window.status("More than " + OPENED + " members would be opened;"
                + " choose a lower generation.");
          } else {
            tree.open(members);
          }
        });
  }

  /** The ways to the members to be opened, as places among siblings; null if they are too many. */
  private static List<OpenPlace> toOpen(Outline outline, int generation) {
    List<OpenPlace> places = new ArrayList<>();
    ArrayDeque<OpenPlace> waiting = new ArrayDeque<>();
    int index = 0;
    for (Member dimension : outline.dimensions()) {
      waiting.add(new OpenPlace(null, index++, dimension));
    }
    while (!waiting.isEmpty()) {
      OpenPlace place = waiting.poll();
      if (place.member.generation() >= generation || !place.member.hasChildren()) {
        continue;
      }
      places.add(place);
      if (places.size() > OPENED) {
        return null;
      }
      if (place.member.generation() + 1 < generation) {
        int[] number = {0};
        try (Stream<Member> children = outline.children(place.member, Details.NONE)) {
          children.forEach(child -> {
            int own = number[0]++;
            if (child.hasChildren()) {
              waiting.add(new OpenPlace(place, own, child));
            }
          });
        }
        if (waiting.size() > OPENED) {
          return null;
        }
      }
    }
    return places;
  }

  /** A member that is to be opened, and where it stands. */
  static final class OpenPlace {
    final OpenPlace parent;
    final int index;
    final Member member;

    OpenPlace(OpenPlace parent, int index, Member member) {
      this.parent = parent;
      this.index = index;
      this.member = member;
    }
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
        window.editor().settings().put("theme", name.toLowerCase(java.util.Locale.ROOT));
      });
      group.add(item);
      themes.add(item);
    }
    window.menu(VIEW).add(themes);
  }
}
