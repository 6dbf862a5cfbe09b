package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NumberedNames;
import com.olvane.kep.olvane.outline.Outline;
import java.awt.BorderLayout;
import java.awt.Font;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import javax.swing.JCheckBox;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JSpinner;
import javax.swing.SpinnerNumberModel;
import net.miginfocom.swing.MigLayout;

/** What the dimension of the selected member has: kind, attributes, named generations, series. */
final class DimensionPane extends JPanel implements WorkspaceListener {
  private static final long serialVersionUID = 1;

  /** What is read of a dimension at once. */
  static final class Reading {
    final Member dimension;
    final Map<Integer, String> generations;
    final Map<Integer, String> levels;
    final List<String> givenGenerations;
    final List<String> givenLevels;
    final List<Member> attributeDimensions;
    final List<DynamicTimeSeries> series;
    final List<String> tables;

    Reading(Outline outline, int handle) {
      dimension = outline.read(new int[] {handle}, Details.NONE.attributes()).get(0);
      NumberedNames names = outline.generations();
      generations = names.all(dimension);
      givenGenerations = names.given(dimension);
      levels = outline.levels().all(dimension);
      givenLevels = outline.levels().given(dimension);
      attributeDimensions = outline.dimensions().stream()
          .filter(one -> one.category() == DimensionCategory.ATTRIBUTE)
          .collect(Collectors.toList());
      series = outline.timeSeries().enabled();
      tables = outline.aliasTables().names();
    }

    boolean isTime() {
      return dimension.category() == DimensionCategory.TIME;
    }
  }

  private final transient Workspace workspace;
  private final JLabel title = new JLabel(" ");
  private final JPanel form = new DetailsPane.Form(new MigLayout(
      "insets 12, fillx, wrap 2, hidemode 3", "[grow 50,fill,:200:]20[grow 50,fill,:200:]"));
  private final JComboBox<String> category = new JComboBox<>();
  private final transient List<DimensionCategory> categories = new ArrayList<>();
  private final JSpinner storage =
      new JSpinner(new SpinnerNumberModel(1, Short.MIN_VALUE, Short.MAX_VALUE, 1));
  private final JCheckBox hybrid = new JCheckBox("Hybrid analysis is enabled");
  private final JPanel attributes =
      new JPanel(new MigLayout("insets 0, wrap 1, fillx, gapy 0", "[grow,fill]"));
  private final NamesGrid generations;
  private final NamesGrid levels;
  private final SeriesGrid series;
  private transient Member shown;
  private boolean showing;

  DimensionPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    title.setFont(title.getFont().deriveFont(Font.BOLD, 16f));
    generations = new NamesGrid(workspace, true);
    levels = new NamesGrid(workspace, false);
    series = new SeriesGrid(workspace);
    for (DimensionCategory one : DimensionCategory.values()) {
      categories.add(one);
      category.addItem(one.words());
    }
    form.add(title, "span, growx, wmin 0, gapbottom 8");
    JPanel kind = new JPanel(new MigLayout("insets 0, fillx, wrap 2", "[][grow,fill,:100:]"));
    addLabelled(kind, "Category", category, "wmin 0");
    addLabelled(kind, "Storage type", storage, "w 100!, growx 0");
    kind.add(hybrid, "skip");
    form.add(kind, "aligny top");
    JPanel beside = new JPanel(new MigLayout("insets 0, fillx, hidemode 3", "[grow,fill]"));
    beside.add(attributes);
    form.add(beside, "aligny top");
    form.add(generations, "aligny top, wmin 0");
    form.add(levels, "aligny top, wmin 0");
    form.add(series, "span, growx, wmin 0");
    JScrollPane scroll = new JScrollPane(form);
    scroll.setBorder(null);
    scroll.getViewport().setOpaque(false);
    add(scroll);
    form.setVisible(false);
    category.addActionListener(event -> {
      if (!showing && shown != null) {
        workspace.edit(
            DimensionEdits.categorise(shown, categories.get(category.getSelectedIndex())));
      }
    });
    storage.addChangeListener(event -> {
      if (!showing && shown != null) {
        workspace.edit(DimensionEdits.storageType(
            shown, ((Integer) storage.getValue()).shortValue()));
      }
    });
    storage.setToolTipText("A number of the outline's API: 1 for a regular dimension");
    hybrid.addActionListener(event ->
        workspace.edit(DimensionEdits.hybridAnalysis(shown, hybrid.isSelected())));
    workspace.addListener(this);
  }

  private static void addLabelled(
      JPanel form, String text, javax.swing.JComponent field, String constraints) {
    JLabel label = new JLabel(text);
    label.setLabelFor(field);
    field.setName(text);
    form.add(label);
    form.add(field, constraints);
  }

  @Override
  public void selected(List<Member> members) {
    if (members.isEmpty()) {
      shown = null;
      form.setVisible(false);
      return;
    }
    int handle = members.get(0).dimensionHandle();
    workspace.read(() -> new Reading(workspace.outline(), handle), this::show);
  }

  private void show(Reading read) {
    showing = true;
    if (!read.dimension.equals(shown)) {
      flush();
    }
    shown = read.dimension;
    form.setVisible(true);
    title.setText("Dimension " + shown.name());
    category.setSelectedIndex(categories.indexOf(shown.category()));
    // A category that has no words here could not be set again by an undo.
    category.setEnabled(shown.category() != DimensionCategory.OTHER);
    storage.setValue((int) shown.storageTypeCode());
    hybrid.setSelected(shown.isHybridAnalysisEnabled());
    showAttributes(read);
    generations.show(read);
    levels.show(read);
    series.setVisible(read.isTime());
    series.show(read);
    showing = false;
  }

  private void showAttributes(Reading read) {
    attributes.removeAll();
    boolean canHave = !read.attributeDimensions.isEmpty()
        && shown.category() != DimensionCategory.ATTRIBUTE;
    attributes.setVisible(canHave);
    if (!canHave) {
      return;
    }
    List<Integer> has =
        shown.attributes().stream().map(Attribute::handle).collect(Collectors.toList());
    JLabel heading = new JLabel("Attribute dimensions");
    heading.setFont(heading.getFont().deriveFont(Font.BOLD));
    attributes.add(heading);
    Member base = shown;
    for (Member one : read.attributeDimensions) {
      JCheckBox box = new JCheckBox(one.name(), has.contains(one.handle()));
      box.addActionListener(event ->
          workspace.edit(DimensionEdits.associate(base, one, box.isSelected())));
      attributes.add(box);
    }
    attributes.revalidate();
  }

  /** Makes edits of what was typed, as before saving. */
  void flush() {
    generations.flush();
    levels.flush();
    series.flush();
  }
}
