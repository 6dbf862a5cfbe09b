package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import java.util.Arrays;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.function.Function;
import java.util.stream.Collectors;
import javax.swing.JComponent;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTextArea;
import javax.swing.text.JTextComponent;
import net.miginfocom.swing.MigLayout;

/** A text of members with a heading: comments, the formula, the user-defined attributes. */
final class TextPart extends JPanel {
  private static final long serialVersionUID = 1;

  private final String title;
  private final JLabel heading;
  private final transient Function<List<Member>, String> read;
  private final transient TextCommit commit;
  private transient List<Member> members = Collections.emptyList();

  /**
   * Makes a part.
   *
   * @param field where the text is, in {@code view}
   * @param read the text of members, null where they differ
   * @param change gives for a text the changes of each member, which refuse what does not fit
   */
  TextPart(Workspace workspace, String title, JTextComponent field, JComponent view,
      Function<List<Member>, String> read, Function<String, Function<Member, Changes>> change) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    this.title = title;
    this.read = read;
    heading = Form.heading(title, field);
    field.setName(title);
    field.setEditable(workspace.isEditable());
    JLabel complaint = new JLabel();
    add(heading);
    add(view);
    add(complaint);
    commit = new TextCommit(field, complaint,
        TextCommit.accordingTo(text -> members.forEach(change.apply(text)::apply)),
        text -> workspace.edit(MemberEdits.change(
            MemberEdits.title("Set the "
                + title.toLowerCase(Locale.ROOT).replaceAll(" \\(.*", "") + " of", members),
            members, change.apply(text))));
  }

  /** A part for plain text of so many lines. */
  static TextPart plain(Workspace workspace, String title, int lines,
      Function<List<Member>, String> read, Function<String, Function<Member, Changes>> change) {
    JTextArea area = new JTextArea(lines, 10);
    area.setLineWrap(true);
    area.setWrapStyleWord(true);
    area.setBorder(Theme.space(4, 6));
    // Tab leaves the text as it leaves a field.
    area.setFocusTraversalKeys(java.awt.KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, null);
    area.setFocusTraversalKeys(java.awt.KeyboardFocusManager.BACKWARD_TRAVERSAL_KEYS, null);
    return new TextPart(workspace, title, area, new JScrollPane(area), read, change);
  }

  /**
   * The user-defined attributes that all members have, one a line. A line that is added is one for
   * all, a line that goes goes from all; what only some have stays.
   */
  static TextPart udas(Workspace workspace) {
    Set<String> before = new LinkedHashSet<>();
    return plain(workspace, "User-defined attributes (one a line)", 3, members -> {
      before.clear();
      before.addAll(members.get(0).udas());
      members.forEach(member -> before.retainAll(member.udas()));
      return String.join("\n", before);
    }, text -> {
      Set<String> common = new LinkedHashSet<>(before);
      List<String> lines = Arrays.stream(text.split("\n")).map(String::trim)
          .filter(line -> !line.isEmpty()).distinct().collect(Collectors.toList());
      return member -> {
        Changes changes = new Changes();
        lines.stream().filter(line -> !member.udas().contains(line)).forEach(changes::uda);
        member.udas().stream().filter(uda -> common.contains(uda) && !lines.contains(uda))
            .forEach(changes::withoutUda);
        return changes;
      };
    });
  }

  void show(List<Member> now, boolean again) {
    members = now;
    String text = read.apply(now);
    heading.setText(text == null ? title + " " + RowGrid.DIFFERENT : title);
    commit.show(text == null ? "" : text, again);
  }

  void flush() {
    commit.flush();
  }

  /** Takes note of an edit that failed. */
  void failed() {
    commit.failed();
  }
}
