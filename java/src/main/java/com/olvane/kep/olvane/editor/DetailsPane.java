package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import java.awt.BorderLayout;
import java.awt.Dimension;
import java.awt.Font;
import java.awt.Rectangle;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Objects;
import java.util.function.Function;
import javax.swing.JComponent;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.Scrollable;
import net.miginfocom.swing.MigLayout;

/**
 * Everything about the selected members, to be read and changed: what they have in common is
 * shown, and a change is one of all of them.
 */
final class DetailsPane extends JPanel implements WorkspaceListener {
  private static final long serialVersionUID = 1;

  /** A part of the pane. */
  interface Part {
    /**
     * Shows members, read with all details.
     *
     * @param again whether they are those that were shown, read anew
     */
    void show(List<Member> members, boolean again);

    /** Makes edits of what was typed. */
    void flush();
  }

  private final transient Workspace workspace;
  private final transient List<Part> parts = new ArrayList<>();
  private final JLabel title = new JLabel(" ");
  private final JLabel path = new JLabel(" ");
  private final JPanel form;
  private transient List<Member> shown = Collections.emptyList();
  private int asked;

  DetailsPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    title.setFont(title.getFont().deriveFont(Font.BOLD, 16f));
    PropertiesForm properties = new PropertiesForm(workspace);
    AliasGrid aliases = new AliasGrid(workspace);
    UdaList udas = new UdaList(workspace);
    AttributeGrid attributes = new AttributeGrid(workspace);
    FormulaPane formula = new FormulaPane(workspace);
    CommentForm comments = new CommentForm(workspace);
    Collections.addAll(parts, properties, aliases, udas, attributes, formula, comments);

    form = new Form(new MigLayout("insets 12 12 12 12, fillx, wrap 2, hidemode 3",
        "[grow 50,fill,:200:]20[grow 50,fill,:200:]"));
    form.add(title, "span, growx, wmin 0");
    form.add(path, "span, growx, wmin 0, gapbottom 8");
    JPanel side = new JPanel(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    side.add(aliases, "wmin 0");
    side.add(udas, "wmin 0");
    side.add(attributes, "wmin 0");
    form.add(properties, "aligny top, wmin 0");
    form.add(side, "aligny top, wmin 0");
    form.add(formula, "span, growx, wmin 0");
    form.add(comments, "span, growx, wmin 0");
    JScrollPane scroll = new JScrollPane(form);
    scroll.setBorder(null);
    scroll.getViewport().setOpaque(false);
    scroll.getVerticalScrollBar().setUnitIncrement(16);
    add(scroll);
    form.setVisible(false);
    workspace.addListener(this);
  }

  /** A form as wide as what it is seen through. */
  static final class Form extends JPanel implements Scrollable {
    private static final long serialVersionUID = 1;

    Form(MigLayout layout) {
      super(layout);
    }

    @Override
    public Dimension getPreferredScrollableViewportSize() {
      return getPreferredSize();
    }

    @Override
    public int getScrollableUnitIncrement(Rectangle seen, int orientation, int direction) {
      return 16;
    }

    @Override
    public int getScrollableBlockIncrement(Rectangle seen, int orientation, int direction) {
      return seen.height - 32;
    }

    @Override
    public boolean getScrollableTracksViewportWidth() {
      return true;
    }

    @Override
    public boolean getScrollableTracksViewportHeight() {
      return false;
    }
  }

  /** {@return the heading of a part} */
  static JLabel heading(String text, JComponent of) {
    JLabel label = new JLabel(text);
    label.setFont(label.getFont().deriveFont(Font.BOLD));
    label.setLabelFor(of);
    return label;
  }

  /** What several members have in common; null where they differ. */
  static <T> T common(List<Member> members, Function<Member, T> value) {
    T first = value.apply(members.get(0));
    for (Member member : members) {
      if (!Objects.equals(value.apply(member), first)) {
        return null;
      }
    }
    return first;
  }

  /** Shows what text members have in common. */
  static void show(
      TextCommit commit, javax.swing.text.JTextComponent field, String text, boolean again) {
    Hint.set(field, text == null ? Hint.DIFFERENT : null);
    if (again) {
      commit.refresh(text == null ? "" : text);
    } else {
      commit.set(text == null ? "" : text);
    }
  }

  @Override
  public void selected(List<Member> members) {
    int number = ++asked;
    if (members.isEmpty()) {
      show(members, Collections.emptyList(), number);
      return;
    }
    int[] handles = members.stream().mapToInt(Member::handle).toArray();
    workspace.read(() -> {
      List<Member> read =
          workspace.outline().read(handles, ChangeEdit.all(workspace.outline()));
      List<Member> above = read.size() > 1 ? Collections.<Member>emptyList()
          : workspace.outline().ancestors(read.get(0), Details.NONE);
      return new Object[] {read, above};
    }, read -> {
      @SuppressWarnings("unchecked")
      List<Member> found = (List<Member>) read[0];
      @SuppressWarnings("unchecked")
      List<Member> above = (List<Member>) read[1];
      show(found, above, number);
    });
  }

  @Override
  public void changed(OutlineChange change) {
    // The workspace selects again after each edit.
  }

  private void show(List<Member> members, List<Member> above, int number) {
    if (number != asked) {
      return;
    }
    boolean again = members.equals(shown);
    if (!again) {
      flush();
    }
    shown = members;
    form.setVisible(!members.isEmpty());
    if (members.isEmpty()) {
      return;
    }
    title.setText(members.size() == 1 ? members.get(0).name() : members.size() + " members");
    path.setText(members.size() == 1 ? describe(members.get(0), above) : list(members));
    path.setForeground(Theme.palette().faint);
    for (Part part : parts) {
      part.show(members, again);
    }
  }

  private static String describe(Member member, List<Member> above) {
    StringBuilder text = new StringBuilder();
    for (int i = above.size() - 1; i >= 0; i--) {
      text.append(above.get(i).name()).append(" › ");
    }
    if (above.isEmpty()) {
      text.append("Dimension");
    } else {
      text.setLength(text.length() - 3);
    }
    text.append("   ·   generation ").append(member.generation());
    text.append(", level ").append(member.level());
    if (member.hasChildren()) {
      text.append(String.format(", %,d %s", member.childCount(),
          member.childCount() == 1 ? "child" : "children"));
    }
    return text.toString();
  }

  private static String list(List<Member> members) {
    StringBuilder text = new StringBuilder();
    for (Member member : members.subList(0, Math.min(8, members.size()))) {
      text.append(text.length() == 0 ? "" : ", ").append(member.name());
    }
    return members.size() > 8 ? text.append(" …").toString() : text.toString();
  }

  /** Makes edits of what was typed, as before saving. */
  void flush() {
    parts.forEach(Part::flush);
  }
}
