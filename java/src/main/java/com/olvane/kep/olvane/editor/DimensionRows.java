package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NumberedNames;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;

/** What the dimension of the selected member has: kind, attributes, named generations, series. */
final class DimensionRows {
  private static final int NAME_LIMIT = 80;
  private static final String OFF = "off";
  /** The time series that there are, from the longest period to the shortest. */
  private static final String[] SERIES =
      {"H-T-D", "Y-T-D", "S-T-D", "P-T-D", "Q-T-D", "M-T-D", "W-T-D", "D-T-D"};

  private final Workspace workspace;
  private final Outline outline;
  private final Member dimension;

  private DimensionRows(Workspace workspace, int handle) {
    this.workspace = workspace;
    outline = workspace.outline;
    dimension = outline.read(new int[] {handle}, Details.NONE.attributes()).get(0);
  }

  /** Reads what the dimension of the first member has. */
  static RowsPane.Contents read(Workspace workspace, List<Member> selected) {
    return selected.isEmpty()
        ? new RowsPane.Contents("", "", "Select a member in the tree to see its dimension.")
        : new DimensionRows(workspace, selected.get(0).dimensionHandle()).contents();
  }

  private RowsPane.Contents contents() {
    RowsPane.Contents contents =
        new RowsPane.Contents(dimension, "Dimension " + dimension.name(), "");
    contents.add(RowsPane.Place.LEFT, "Dimension", kind());
    contents.add(RowsPane.Place.RIGHT, "Generations", names(outline.generations(), true));
    contents.add(RowsPane.Place.RIGHT, "Levels", names(outline.levels(), false));
    if (dimension.category() == DimensionCategory.TIME) {
      contents.add(RowsPane.Place.LEFT, "Dynamic time series", series());
    }
    return contents;
  }

  private List<Row> kind() {
    List<String> words = Arrays.stream(DimensionCategory.values())
        .filter(one -> one != DimensionCategory.OTHER)
        .map(DimensionCategory::words).collect(Collectors.toList());
    boolean known = dimension.category() != DimensionCategory.OTHER;
    List<Row> rows = new ArrayList<>();
    // A category that has no words could not be set again by an undo.
    rows.add(Row.chosen("Category", dimension.category().words(),
        known ? words : Collections.emptyList(), chosen -> workspace.edit(DimensionEdits.categorise(
            dimension, DimensionCategory.values()[words.indexOf(chosen)]))));
    rows.add(Row.typed("Storage type (1: regular)", Short.toString(dimension.storageTypeCode()),
        Row.number(Short.MAX_VALUE), code -> workspace.edit(
            DimensionEdits.storageType(dimension, Short.parseShort(code)))));
    rows.add(Row.yesNo("Hybrid analysis", dimension.isHybridAnalysisEnabled(),
        enabled -> workspace.edit(DimensionEdits.hybridAnalysis(dimension, enabled))));
    for (Member one : outline.dimensions()) {
      if (one.category() == DimensionCategory.ATTRIBUTE
          && dimension.category() != DimensionCategory.ATTRIBUTE) {
        boolean has = dimension.attributes().stream()
            .mapToInt(Attribute::handle).anyMatch(attribute -> attribute == one.handle());
        rows.add(Row.yesNo("Attribute " + one.name(), has,
            chosen -> workspace.edit(DimensionEdits.associate(dimension, one, chosen))));
      }
    }
    return rows;
  }

  private List<Row> names(NumberedNames names, boolean ofGenerations) {
    List<Row> rows = new ArrayList<>();
    List<String> given = names.given(dimension);
    names.all(dimension).forEach((number, name) -> rows.add(Row.typed(
        number.toString(), name, Row.atMost(NAME_LIMIT),
        text -> workspace.edit(DimensionEdits.name(dimension, ofGenerations, number, text)))
        .standingBack(!given.contains(name))));
    return rows;
  }

  private List<Row> series() {
    List<String> choices = new ArrayList<>();
    choices.add(OFF);
    outline.generations().all(dimension).keySet()
        .forEach(number -> choices.add("generation " + number));
    Map<String, DynamicTimeSeries> enabled = new HashMap<>();
    outline.timeSeries().enabled().forEach(one -> enabled.put(one.getName(), one));
    List<Row> rows = new ArrayList<>();
    for (String name : SERIES) {
      DynamicTimeSeries one = enabled.get(name);
      rows.add(Row.chosen(name, one == null ? OFF : "generation " + one.getGeneration(), choices,
          chosen -> workspace.edit(DimensionEdits.series(name, choices.indexOf(chosen))))
          .standingBack(one == null));
      if (one != null) {
        for (String table : outline.aliasTables().names()) {
          String alias = one.getAliases().getOrDefault(table, "");
          rows.add(Row.typed(name + " in " + table, alias, Row.atMost(MemberRows.ALIAS_LIMIT),
              text -> workspace.edit(DimensionEdits.seriesAlias(name, table, text))));
        }
      }
    }
    return rows;
  }
}
