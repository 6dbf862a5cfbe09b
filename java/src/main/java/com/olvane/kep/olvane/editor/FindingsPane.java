package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Finding;
import com.olvane.kep.olvane.outline.Member;
import java.awt.BorderLayout;
import java.text.NumberFormat;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;

/** What verification found; to choose a finding goes to its member. */
final class FindingsPane extends JPanel {
  private static final long serialVersionUID = 1;

  private final JLabel summary = new JLabel("Verify the outline to see what is wrong with it.");
  private final transient Listing<Finding> listing = new Listing<>("findings",
      new String[] {"Member", "Finding"}, new int[] {160, 520}, Arrays.asList(
          finding -> finding.handle() == 0 ? "The whole outline" : finding.member(),
          Finding::toString));

  FindingsPane(Workspace workspace) {
    super(new BorderLayout());
    summary.setBorder(Theme.space(8, 10));
    listing.onChoice(1, finding -> {
      if (finding.handle() != 0) {
        workspace.read(
            () -> workspace.outline().read(new int[] {finding.handle()}, Details.NONE).get(0),
            (Member member) -> workspace.select(Collections.singletonList(member)));
      }
    });
    JScrollPane scroll = new JScrollPane(listing);
    scroll.setBorder(Theme.space(0, 0));
    add(summary, BorderLayout.NORTH);
    add(scroll);
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
