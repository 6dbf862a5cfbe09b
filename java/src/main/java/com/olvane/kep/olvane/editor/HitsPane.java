package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.awt.BorderLayout;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.SwingUtilities;

/** The members that a search found, with their paths, which are read when they come into view. */
final class HitsPane extends JPanel {
  private static final long serialVersionUID = 1;
  private static final String TO_COME = "\u2026";

  private final transient Workspace workspace;
  private final transient SearchTask search;
  private final transient Map<Integer, String> paths = new HashMap<>();
  private final transient List<Member> asked = new ArrayList<>();
  private final transient Listing<Member> listing = new Listing<>("hits",
      new String[] {"Member", "Alias", "Path"}, new int[] {160, 200, 360},
      Arrays.asList(Member::name, HitsPane::alias, this::path));
  private int shown;

  HitsPane(Workspace workspace, SearchTask search) {
    super(new BorderLayout());
    this.workspace = workspace;
    this.search = search;
    listing.show(search.hits());
    listing.onChoice(1, member -> search.go(listing.getSelectedRow()));
    JLabel hint =
        new JLabel("Type into the search field above the tree; click a member to go to it.");
    hint.setBorder(Theme.space(8, 10));
    JScrollPane scroll = new JScrollPane(listing);
    scroll.setBorder(Theme.space(0, 0));
    add(hint, BorderLayout.NORTH);
    add(scroll);
    search.onProgress(this::follow);
    workspace.changed.hear(change -> {
      paths.clear();
      listing.repaint();
    });
  }

  private void follow() {
    int now = search.hits().size();
    if (now < shown || shown == 0) {
      listing.show(search.hits());
    } else if (now > shown) {
      listing.grown(shown);
    }
    shown = now;
    int position = search.position();
    if (position >= 0 && position < now && listing.getSelectedRow() != position) {
      listing.setRowSelectionInterval(position, position);
      listing.scrollRectToVisible(listing.getCellRect(position, 0, true));
    }
  }

  private static String alias(Member member) {
    List<String> tables = member.details().aliasTables();
    return tables.isEmpty() ? "" : member.alias(tables.get(0));
  }

  private String path(Member member) {
    if (!paths.containsKey(member.handle())) {
      paths.put(member.handle(), TO_COME);
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
    workspace.read(() -> some.stream().map(one -> path(workspace.outline(), one))
        .collect(Collectors.toList()), found -> {
          for (int i = 0; i < some.size(); i++) {
            paths.put(some.get(i).handle(), found.get(i));
          }
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
