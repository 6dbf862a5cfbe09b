package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Finding;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.function.Consumer;
import java.util.stream.Collectors;
import java.util.stream.IntStream;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.SwingUtilities;

/** The panes that list things: findings, steps, and what a search found. */
final class Lists {
  private Lists() {}

  /** What verification found last; to choose a finding goes to its member. */
  static JPanel findings(Workspace workspace) {
    JLabel summary = new JLabel("Verify the outline to see what is wrong with it.");
    Listing<Finding> listing = new Listing<Finding>("findings")
        .column("Member", 160,
            finding -> finding.handle() == 0 ? "The whole outline" : finding.member())
        .column("Finding", 520, Finding::toString);
    listing.onChoice(1, finding -> {
      if (finding.handle() != 0) {
        workspace.read(() -> workspace.outline.read(new int[] {finding.handle()}, Details.NONE),
            workspace::select);
      }
    });
    workspace.verified.hear(found -> {
      summary.setText(found.isEmpty() ? "Nothing is wrong with this outline."
          : String.format("%,d %s, as of the last verification. Click one to go to its member.",
              found.size(), found.size() == 1 ? "finding" : "findings"));
      listing.show(found);
    });
    return listing.pane(summary);
  }

  /** The steps that were done, and those that were undone; a double click goes back or forth. */
  static JPanel history(Workspace workspace) {
    Listing<String[]> listing = new Listing<String[]>("history")
        .column("Step", 480, step -> step[0]).column("State", 120, step -> step[1]);
    listing.onChoice(2, step -> {
      int now = workspace.history.done;
      int chosen = listing.getSelectedRow();
      IntStream.range(chosen, now).forEach(undone -> workspace.undo());
      IntStream.range(now, chosen).forEach(redone -> workspace.redo());
    });
    Consumer<History> show = history -> {
      List<String> titles = history.titles();
      titles.add(0, "Opened");
      int now = Math.min(history.done, titles.size() - 1);
      listing.show(IntStream.range(0, titles.size()).mapToObj(step -> new String[] {
          titles.get(step), step == now ? "now" : step > now ? "undone" : ""
      }).collect(Collectors.toList()));
      listing.choose(now);
    };
    workspace.historyChanged.hear(show);
    show.accept(workspace.history);
    return listing.pane(new JLabel("Double-click a step to go back to it, or forth."));
  }

  /**
   * The members that a search found, with their paths, which are read when they come into view; to
   * choose one goes to it.
   */
  static final class Hits {
    private static final String TO_COME = "\u2026";

    private final Workspace workspace;
    private final SearchTask search;
    private final Map<Integer, String> paths = new HashMap<>();
    private final Listing<Member> listing = new Listing<Member>("hits")
        .column("Member", 160, Member::name).column("Alias", 200, Hits::alias)
        .column("Path", 360, this::path);
    final JPanel panel = listing.pane(
        new JLabel("Type into the search field above the tree; click a member to go to it."));
    private int shown;

    Hits(Workspace workspace, SearchTask search) {
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
        workspace.read(() -> path(workspace.outline, member), found -> {
          paths.put(member.handle(), found);
          listing.repaint();
        });
      }
      return paths.get(member.handle());
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
}
