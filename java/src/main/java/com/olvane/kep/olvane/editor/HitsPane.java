package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.SwingUtilities;

/** The members that a search found, with their paths, which are read when they come into view. */
final class HitsPane {
  private static final String TO_COME = "\u2026";

  private final Workspace workspace;
  private final SearchTask search;
  private final Map<Integer, String> paths = new HashMap<>();
  private final List<Member> asked = new ArrayList<>();
  private final Listing<Member> listing = new Listing<Member>("hits")
      .column("Member", 160, Member::name).column("Alias", 200, HitsPane::alias)
      .column("Path", 360, this::path);
  final JPanel panel = listing.pane(
      new JLabel("Type into the search field above the tree; click a member to go to it."));
  private int shown;

  HitsPane(Workspace workspace, SearchTask search) {
    this.workspace = workspace;
    this.search = search;
    listing.show(search.hits);
    listing.onChoice(1, member -> search.go(listing.getSelectedRow()));
    search.progress.hear(task -> follow());
    workspace.changed.hear(change -> {
      paths.clear();
      listing.repaint();
    });
  }

  private void follow() {
    int now = search.hits.size();
    if (now < shown || shown == 0) {
      listing.show(search.hits);
    } else if (now > shown) {
      listing.grown(shown);
    }
    shown = now;
    int position = search.position;
    if (position >= 0 && listing.getSelectedRow() != position) {
      listing.choose(position);
    }
  }

  private static String alias(Member member) {
    List<String> tables = member.details().aliasTables();
    return tables.isEmpty() ? "" : member.alias(tables.get(0));
  }

  private String path(Member member) {
    if (paths.putIfAbsent(member.handle(), TO_COME) == null) {
      if (asked.isEmpty()) {
        // Behind the painting that asks for all rows in view.
        SwingUtilities.invokeLater(this::readPaths);
      }
      asked.add(member);
    }
    return paths.get(member.handle());
  }

  private void readPaths() {
    List<Member> some = new ArrayList<>(asked);
    asked.clear();
    workspace.read(() -> some.stream().collect(Collectors.toMap(
        Member::handle, one -> path(workspace.outline, one), (path, same) -> path)), found -> {
          paths.putAll(found);
          listing.repaint();
        });
  }

  private static String path(Outline outline, Member member) {
    try {
      List<Member> above = new ArrayList<>(outline.ancestors(member, Details.NONE));
      Collections.reverse(above);
      return above.stream().map(Member::name).collect(Collectors.joining(" \u203a "));
    } catch (OutlineException e) {
      return "deleted";
    }
  }
}
