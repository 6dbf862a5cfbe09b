package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Finding;
import java.text.NumberFormat;
import java.util.List;
import javax.swing.JLabel;
import javax.swing.JPanel;

/** What verification found; to choose a finding goes to its member. */
final class FindingsPane {
  private final JLabel summary = new JLabel("Verify the outline to see what is wrong with it.");
  private final Listing<Finding> listing = new Listing<Finding>("findings")
      .column("Member", 160,
          finding -> finding.handle() == 0 ? "The whole outline" : finding.member())
      .column("Finding", 520, Finding::toString);
  final JPanel panel = listing.pane(summary);

  FindingsPane(Workspace workspace) {
    listing.onChoice(1, finding -> {
      if (finding.handle() != 0) {
        workspace.read(() -> workspace.outline.read(new int[] {finding.handle()}, Details.NONE),
            workspace::select);
      }
    });
  }

  /** Shows what was found. */
  void show(List<Finding> found) {
    summary.setText(found.isEmpty() ? "Nothing is wrong with this outline."
        : NumberFormat.getIntegerInstance().format(found.size())
            + (found.size() == 1 ? " finding" : " findings")
            + ", as of the last verification. Click one to go to its member.");
    listing.show(found);
  }
}
