package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Finding;
import java.util.List;
import java.util.function.Consumer;
import java.util.stream.Collectors;
import java.util.stream.IntStream;
import javax.swing.JLabel;
import javax.swing.JPanel;

/** The panes that list what happened: findings and steps. */
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
      int now = workspace.history.position();
      int chosen = listing.getSelectedRow();
      IntStream.range(chosen, now).forEach(undone -> workspace.undo());
      IntStream.range(now, chosen).forEach(redone -> workspace.redo());
    });
    Consumer<History> show = history -> {
      List<String> titles = history.titles();
      titles.add(0, "Opened");
      int now = Math.min(history.position(), titles.size() - 1);
      listing.show(IntStream.range(0, titles.size()).mapToObj(step -> new String[] {
          titles.get(step), step == now ? "now" : step > now ? "undone" : ""
      }).collect(Collectors.toList()));
      listing.choose(now);
    };
    workspace.historyChanged.hear(show);
    show.accept(workspace.history);
    return listing.pane(new JLabel("Double-click a step to go back to it, or forth."));
  }
}
