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
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;

/** What the dimension of the selected member has: kind, attributes, named generations, series. */
final class DimensionPane extends JPanel implements WorkspaceListener {
  private static final long serialVersionUID = 1;
  private static final int NAME_LIMIT = 80;
  private static final String OFF = "off";
  /** The time series that there are, from the longest period to the shortest. */
  private static final String[] SERIES =
      {"H-T-D", "Y-T-D", "S-T-D", "P-T-D", "Q-T-D", "M-T-D", "W-T-D", "D-T-D"};

  private final transient Workspace workspace;
  private final JLabel title = new JLabel(" ");
  private final Form form = new Form("insets 12, fillx, wrap 2, gapy 10, hidemode 3",
      "[grow 50,fill,:200:]20[grow 50,fill,:200:]");
  private final RowGrid kind;
  private final RowGrid series;
  private final RowGrid generations;
  private final RowGrid levels;
  private final List<RowGrid> grids;
  private final JScrollPane scroll = form.scrolled();
  private int handle;

  DimensionPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    boolean editable = workspace.isEditable();
    kind = new RowGrid("Dimension", editable, 50, 8);
    series = new RowGrid("Dynamic time series", editable, 50, 8);
    generations = new RowGrid("Generations", editable, 20, 8);
    levels = new RowGrid("Levels", editable, 20, 8);
    // In two columns.
    grids = Arrays.asList(kind, generations, series, levels);
    title.setFont(title.getFont().deriveFont(Font.BOLD, 16f));
    form.add(title, "cell 0 0 2 1, growx, wmin 0");
    for (int i = 0; i < grids.size(); i++) {
      form.add(grids.get(i), "cell " + i % 2 + " " + (1 + i / 2) + ", aligny top, wmin 0");
    }
    add(scroll);
    scroll.setVisible(false);
    workspace.addListener(this);
  }

  /** The rows of a dimension, read on the work thread and made for the grids. */
  private final class Reading {
    final Member dimension;
    final List<RowGrid.Row> kindRows = new ArrayList<>();
    final List<RowGrid.Row> generationRows = new ArrayList<>();
    final List<RowGrid.Row> levelRows = new ArrayList<>();
    final List<RowGrid.Row> seriesRows = new ArrayList<>();

    Reading(Outline outline, int of) {
      dimension = outline.read(new int[] {of}, Details.NONE.attributes()).get(0);
      addKind(outline);
      addNames(outline.generations(), true, generationRows);
      addNames(outline.levels(), false, levelRows);
      if (dimension.category() == DimensionCategory.TIME) {
        addSeries(outline);
      }
    }

    private void addKind(Outline outline) {
      List<String> words = new ArrayList<>();
      for (DimensionCategory one : DimensionCategory.values()) {
        words.add(one.words());
      }
      boolean known = dimension.category() != DimensionCategory.OTHER;
      words.remove(DimensionCategory.OTHER.words());
      // A category that has no words could not be set again by an undo.
      kindRows.add(RowGrid.Row.chosen("Category", dimension.category().words(),
          known ? words : new ArrayList<>(), chosen -> workspace.edit(DimensionEdits.categorise(
              dimension, DimensionCategory.values()[words.indexOf(chosen)]))));
      kindRows.add(SettingsPane.number(workspace, "Storage type (1: regular)",
          dimension.storageTypeCode(), Short.MAX_VALUE,
          code -> DimensionEdits.storageType(dimension, code)));
      kindRows.add(RowGrid.Row.yesNo("Hybrid analysis", dimension.isHybridAnalysisEnabled(),
          enabled -> workspace.edit(DimensionEdits.hybridAnalysis(dimension, enabled))));
      for (Member one : outline.dimensions()) {
        if (one.category() == DimensionCategory.ATTRIBUTE && !dimension.equals(one)
            && dimension.category() != DimensionCategory.ATTRIBUTE) {
          boolean has = dimension.attributes().stream()
              .mapToInt(Attribute::handle).anyMatch(attribute -> attribute == one.handle());
          kindRows.add(RowGrid.Row.yesNo("Attribute " + one.name(), has,
              chosen -> workspace.edit(DimensionEdits.associate(dimension, one, chosen))));
        }
      }
    }

    private void addNames(NumberedNames names, boolean ofGenerations, List<RowGrid.Row> rows) {
      List<String> given = names.given(dimension);
      names.all(dimension).forEach((number, name) -> rows.add(RowGrid.Row.typed(
          number.toString(), name, TextCommit.atMost(NAME_LIMIT),
          text -> workspace.edit(DimensionEdits.name(dimension, ofGenerations, number, text)))
          .standingBack(!given.contains(name))));
    }

    private void addSeries(Outline outline) {
      List<String> choices = new ArrayList<>();
      choices.add(OFF);
      outline.generations().all(dimension).keySet()
          .forEach(number -> choices.add("generation " + number));
      Map<String, DynamicTimeSeries> enabled = new TreeMap<>();
      outline.timeSeries().enabled().forEach(one -> enabled.put(one.getName(), one));
      for (String name : SERIES) {
        DynamicTimeSeries one = enabled.get(name);
        seriesRows.add(RowGrid.Row.chosen(name,
            one == null ? OFF : "generation " + one.getGeneration(), choices,
            chosen -> workspace.edit(DimensionEdits.series(name, choices.indexOf(chosen))))
            .standingBack(one == null));
        if (one != null) {
          for (String table : outline.aliasTables().names()) {
            String alias = one.getAliases().get(table);
            seriesRows.add(RowGrid.Row.typed("    alias in " + table, alias == null ? "" : alias,
                TextCommit.atMost(MemberRows.ALIAS_LIMIT),
                text -> workspace.edit(DimensionEdits.seriesAlias(name, table, text))));
          }
        }
      }
    }
  }

  @Override
  public void selected(List<Member> members) {
    int next = members.isEmpty() ? 0 : members.get(0).dimensionHandle();
    boolean other = next != handle;
    handle = next;
    scroll.setVisible(next != 0);
    RowGrid.afterLeaving(other ? grids : Collections.emptyList(), () -> {
      if (other) {
        flush();
      }
      if (next != 0) {
        workspace.read(() -> new Reading(workspace.outline(), next), read -> {
          if (next == handle) {
            show(read);
          }
        });
      }
    });
  }

  private void show(Reading read) {
    title.setText("Dimension " + read.dimension.name());
    kind.show(read.kindRows);
    generations.show(read.generationRows);
    levels.show(read.levelRows);
    series.show(read.seriesRows);
    series.setVisible(!read.seriesRows.isEmpty());
  }

  /** Makes edits of what was typed, as before saving. */
  void flush() {
    grids.forEach(RowGrid::flush);
  }
}
