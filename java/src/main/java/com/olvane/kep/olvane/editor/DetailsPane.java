package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.awt.BorderLayout;
import java.awt.Font;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import net.miginfocom.swing.MigLayout;

/**
 * Everything about the selected members, to be read and changed: what they have in common is
 * shown, and a change is one of all of them.
 */
final class DetailsPane extends JPanel implements WorkspaceListener {
  private static final long serialVersionUID = 1;
  /** So many members are held with all that they have. */
  private static final int MOST = 10_000;

  /** What is read of members at once, on the work thread. */
  private static final class Reading {
    final List<Member> members;
    final List<Member> above;
    final Map<String, List<String>> attributes;

    Reading(Outline outline, int[] handles) {
      members = outline.read(handles, ChangeEdit.all(outline));
      above = members.size() == 1 ? outline.ancestors(members.get(0), Details.NONE)
          : Collections.<Member>emptyList();
      attributes = MemberRows.readAttributes(outline, members);
    }
  }

  private final transient Workspace workspace;
  private final JLabel none = new JLabel();
  private final JScrollPane scroll;
  private final JLabel title = new JLabel(" ");
  private final JLabel path = new JLabel(" ");
  private final RowGrid properties;
  private final RowGrid aliases;
  private final RowGrid attributes;
  private final List<RowGrid> grids;
  private final List<TextPart> texts;
  private final Form form = new Form("insets 12, fillx, wrap 2, gapy 8, hidemode 3",
      "[grow 50,fill,:200:]20[grow 50,fill,:200:]");
  private transient List<Member> shown = Collections.emptyList();
  private int asked;

  DetailsPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    properties = new RowGrid("Properties", workspace.isEditable(), 42, 9);
    aliases = new RowGrid("Aliases", workspace.isEditable(), 34, 5);
    attributes = new RowGrid("Attributes", workspace.isEditable(), 34, 4);
    grids = Arrays.asList(properties, aliases, attributes);
    title.setFont(title.getFont().deriveFont(Font.BOLD, 16f));
    path.setEnabled(false);
    TextPart udas = TextPart.udas(workspace);
    TextPart formula = FormulaArea.part(workspace);
    TextPart comment = TextPart.plain(workspace, "Comment", 1,
        members -> MemberRows.common(members, Member::comment),
        text -> member -> new Changes().comment(text));
    TextPart extended = TextPart.plain(workspace, "Extended comment", 3,
        members -> MemberRows.common(members, Member::extendedComment),
        text -> member -> new Changes().extendedComment(text));
    texts = Arrays.asList(udas, formula, comment, extended);
    JPanel side = new JPanel(
        new MigLayout("insets 0, fillx, wrap 1, gapy 8, hidemode 3", "[grow,fill]"));
    side.add(aliases, "wmin 0");
    side.add(attributes, "wmin 0");
    side.add(udas, "wmin 0");
    form.add(title, "span, growx, wmin 0, split 2, flowy, gapy 0");
    form.add(path, "growx, wmin 0");
    form.add(properties, "aligny top, wmin 0");
    form.add(side, "aligny top, wmin 0");
    for (TextPart part : Arrays.asList(formula, comment, extended)) {
      form.add(part, "span, growx, wmin 0");
    }
    none.setEnabled(false);
    none.setBorder(Theme.space(24, 24));
    add(none, BorderLayout.NORTH);
    scroll = form.scrolled();
    add(scroll);
    selected(Collections.emptyList());
    workspace.addListener(this);
  }

  private void showForm(boolean any) {
    none.setVisible(!any);
    scroll.setVisible(any);
  }

  @Override
  public void selected(List<Member> members) {
    int number = ++asked;
    if (members.isEmpty() || members.size() > MOST) {
      flush();
      shown = members;
      none.setText(members.isEmpty() ? "Select a member in the tree to see what it has."
          : String.format("%,d members are selected; details are shown of up to %,d at once.",
              members.size(), MOST));
      showForm(false);
      return;
    }
    int[] handles = members.stream().mapToInt(Member::handle).toArray();
    workspace.read(() -> new Reading(workspace.outline(), handles), read -> {
      boolean again = read.members.equals(shown);
      RowGrid.afterLeaving(again ? Collections.emptyList() : grids, () -> {
        if (number == asked) {
          show(read);
        }
      });
    });
  }

  @Override
  public void failed(Exception failure) {
    texts.forEach(TextPart::failed);
  }

  private void show(Reading read) {
    List<Member> members = read.members;
    boolean again = members.equals(shown);
    if (!again) {
      flush();
    }
    shown = members;
    title.setText(members.size() == 1 ? members.get(0).name() : members.size() + " members");
    path.setText(members.size() == 1 ? describe(members.get(0), read.above)
        : members.stream().limit(9).map(Member::name).collect(Collectors.joining(", ")));
    properties.show(MemberRows.properties(workspace, members));
    aliases.show(MemberRows.aliases(workspace, members));
    attributes.show(MemberRows.attributes(workspace, members, read.attributes));
    attributes.setVisible(!read.attributes.isEmpty());
    texts.forEach(text -> text.show(members, again));
    showForm(true);
  }

  private static String describe(Member member, List<Member> above) {
    StringBuilder text = new StringBuilder(above.isEmpty() ? "Dimension" : "");
    for (Member one : above) {
      text.insert(0, one.name() + (text.length() == 0 ? "" : " \u203a "));
    }
    text.append("   \u00b7   generation ").append(member.generation());
    text.append(", level ").append(member.level());
    if (member.hasChildren()) {
      text.append(String.format(", %,d %s", member.childCount(),
          member.childCount() == 1 ? "child" : "children"));
    }
    return text.toString();
  }

  /** Makes edits of what was typed, as before saving. */
  void flush() {
    grids.forEach(RowGrid::flush);
    texts.forEach(TextPart::flush);
  }
}
