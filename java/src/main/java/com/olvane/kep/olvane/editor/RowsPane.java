package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;
import java.awt.BorderLayout;
import java.awt.Component;
import java.awt.Font;
import java.awt.KeyboardFocusManager;
import java.util.ArrayList;
import java.util.Collections;
import java.util.EnumMap;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Optional;
import java.util.function.BiFunction;
import java.util.stream.Collectors;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.SwingUtilities;
import net.miginfocom.swing.MigLayout;

/**
 * Something of the outline in rows to be read and changed: the selected members, a dimension, the
 * settings. It is read, while the pane is seen, whenever the selection changes or an edit was made.
 */
final class RowsPane extends JPanel {
  /** Where rows stand in a pane. */
  enum Place {
    LEFT(""), RIGHT(""), BELOW(", newline, span, growx"), ALONE(", span, wmax 560");

    private final String constraints;

    Place(String constraints) {
      this.constraints = constraints;
    }
  }

  /** What a pane shows. */
  static final class Contents {
    private final Object subject;
    private final String title;
    private final String remark;
    private final List<Row> rows = new ArrayList<>();

    /**
     * Makes contents without rows.
     *
     * @param subject what they are about: while it is the same, what is being typed stays
     */
    Contents(Object subject, String title, String remark) {
      this.subject = subject;
      this.title = title;
      this.remark = remark;
    }

    /** Adds rows with a heading, which may be empty. */
    void add(Place place, String heading, List<Row> more) {
      for (Row row : more) {
        row.place = place;
        row.heading = heading;
        rows.add(row);
      }
    }
  }

  private final Workspace workspace;
  private final BiFunction<Workspace, List<Member>, Contents> source;
  private final JLabel title = new JLabel();
  private final JLabel remark = new JLabel();
  private final JPanel form = new JPanel(new MigLayout("insets 12, fillx, hidemode 3, gapy 6",
      "[grow 50,fill,:160:]20[grow 50,fill,:160:]"));
  private final Map<String, RowField> fields = new HashMap<>();
  private List<String> layout;
  private Object subject;
  /** The members that were selected for what is shown. */
  private List<Member> shown = Collections.emptyList();
  private boolean asking;
  private int asked;

  /** Makes a pane of what {@code source} reads, on the work thread, of the selected members. */
  RowsPane(Workspace workspace, BiFunction<Workspace, List<Member>, Contents> source) {
    super(new BorderLayout());
    this.workspace = workspace;
    this.source = source;
    title.setFont(title.getFont().deriveFont(Font.BOLD, 16f));
    remark.setEnabled(false);
    JScrollPane scroll = new JScrollPane(form);
    scroll.setBorder(Theme.space(0, 0));
    scroll.getVerticalScrollBar().setUnitIncrement(16);
    add(scroll);
    workspace.selected.hear(this::selected);
    workspace.failed.hear(failure -> fields.values().forEach(RowField::failed));
    Listen.onShowing(this, seen -> selected(workspace.selection()));
  }

  private void selected(List<Member> members) {
    int number = ++asked;
    if (isShowing()) {
      workspace.read(() -> source.apply(workspace, members), contents -> {
        if (number == asked && !asking) {
          show(contents, members);
        }
      });
    }
  }

  private void show(Contents now, List<Member> members) {
    boolean again = now.subject.equals(subject);
    if (!again) {
      fields.values().forEach(RowField::flush);
      if (fields.values().stream().anyMatch(RowField::isTyped)) {
        workspace.select(canBeLeft() ? workspace.selection() : shown);
        return;
      }
    }
    subject = now.subject;
    shown = members;
    title.setText(now.title);
    title.setVisible(!now.title.isEmpty());
    remark.setText(now.remark);
    remark.setVisible(!now.remark.isEmpty());
    List<String> needed = now.rows.stream().map(RowsPane::key).collect(Collectors.toList());
    if (!needed.equals(layout)) {
      layout = needed;
      layOut(now.rows);
    }
    now.rows.forEach(row -> fields.get(key(row)).show(row, again));
  }

  /** Whether what is shown may go; asks where a text was not taken. */
  boolean canBeLeft() {
    Optional<RowField> refused = fields.values().stream().filter(RowField::isTyped).findAny();
    if (!refused.isPresent()) {
      return true;
    }
    asking = true;
    int answer = Ask.choose(this, title.getText() + ": " + refused.get().complaint(),
        "Go Back to the Text", "Discard the Text");
    asking = false;
    if (answer == 1) {
      fields.values().forEach(RowField::giveUp);
    }
    return answer == 1;
  }

  /** Tells fields apart. */
  private static String key(Row row) {
    return row.name() + (row.choices == null ? "" : " (chosen)");
  }

  private void layOut(List<Row> rows) {
    Component focus = KeyboardFocusManager.getCurrentKeyboardFocusManager().getFocusOwner();
    boolean inside = focus != null && SwingUtilities.isDescendingFrom(focus, form);
    form.removeAll();
    form.add(title, "span, wmin 0, wrap, gapbottom 0");
    form.add(remark, "span, wmin 0, wrap");
    Map<Place, JPanel> parts = new EnumMap<>(Place.class);
    String heading = "";
    for (Row row : rows) {
      JPanel part = parts.computeIfAbsent(row.place, place -> new JPanel(new MigLayout(
          "insets 0, fillx, wrap 2, hidemode 3, gapy 3", "[:pref:65%]12[grow,fill]")));
      if (!row.heading.equals(heading) && !row.heading.isEmpty()) {
        JLabel label = new JLabel(row.heading);
        label.setFont(label.getFont().deriveFont(Font.BOLD));
        part.add(label, "span, gaptop 6");
      }
      heading = row.heading;
      fields.computeIfAbsent(key(row),
          key -> new RowField(row, workspace.isEditable(), workspace.typing::tell)).addTo(part);
    }
    parts.forEach((place, part) -> form.add(part, "wmin 0, aligny top" + place.constraints));
    fields.keySet().retainAll(layout);
    form.revalidate();
    form.repaint();
    if (inside) {
      focus.requestFocusInWindow();
    }
  }
}
