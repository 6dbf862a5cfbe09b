package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import java.util.Collections;
import java.util.List;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import net.miginfocom.swing.MigLayout;

/** The comment of members, and the extended one. */
final class CommentForm extends JPanel implements DetailsPane.Part {
  private static final long serialVersionUID = 1;

  private final Hint.Field comment = new Hint.Field(10);
  private final Hint.Area extended = new Hint.Area(3);
  private final transient TextCommit commentCommit;
  private final transient TextCommit extendedCommit;
  private transient List<Member> members = Collections.emptyList();

  CommentForm(Workspace workspace) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    comment.setName("Comment");
    extended.setName("Extended comment");
    JLabel complaint = new JLabel();
    JLabel extendedComplaint = new JLabel();
    add(DetailsPane.heading("Comment", comment));
    add(comment);
    add(complaint);
    add(DetailsPane.heading("Extended comment", extended));
    add(new JScrollPane(extended));
    add(extendedComplaint);
    commentCommit = new TextCommit(comment, complaint,
        TextCommit.accordingTo(text -> new Changes().comment(text)),
        text -> workspace.edit(MemberEdits.change(
            MemberEdits.title("Set the comment of", members), members,
            member -> new Changes().comment(text))));
    extendedCommit = new TextCommit(extended, extendedComplaint,
        TextCommit.accordingTo(text -> new Changes().extendedComment(text)),
        text -> workspace.edit(MemberEdits.change(
            MemberEdits.title("Set the extended comment of", members), members,
            member -> new Changes().extendedComment(text))));
  }

  @Override
  public void show(List<Member> now, boolean again) {
    members = now;
    DetailsPane.show(commentCommit, comment, DetailsPane.common(now, Member::comment), again);
    DetailsPane.show(
        extendedCommit, extended, DetailsPane.common(now, Member::extendedComment), again);
  }

  @Override
  public void flush() {
    commentCommit.flush();
    extendedCommit.flush();
  }
}
