package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NumberedNames;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;

/** What a dimension has besides its members: its kind, named generations and levels, series. */
final class DimensionParts {
  private final Member dimension;
  private final Map<Integer, String> generations;
  private final Map<Integer, String> levels;
  private final List<String> attributeDimensions;
  private final List<DynamicTimeSeries> series = new ArrayList<>();

  /** Takes them down as they are now. */
  DimensionParts(EditContext context, Member dimension) {
    Outline outline = context.outline;
    this.dimension = dimension;
    generations = given(outline.generations(), dimension);
    levels = given(outline.levels(), dimension);
    attributeDimensions =
        MemberParts.attributes(outline.read(dimension, Details.NONE.attributes()));
    if (dimension.category() == DimensionCategory.TIME) {
      series.addAll(outline.timeSeries().enabled());
    }
  }

  /** The names that were given, by number. */
  static Map<Integer, String> given(NumberedNames names, Member dimension) {
    Map<Integer, String> given = new TreeMap<>(names.all(dimension));
    given.values().retainAll(names.given(dimension));
    return given;
  }

  /** Gives a dimension the kind, at its place. */
  void restoreKind(EditContext context, Member now, Place place) {
    Outline outline = context.outline;
    if (now.storageTypeCode() != dimension.storageTypeCode()) {
      outline.setStorageType(now, dimension.storageTypeCode());
    }
    if (now.categoryCode() != dimension.categoryCode()) {
      if (dimension.category() == DimensionCategory.ATTRIBUTE) {
        outline.makeAttributeDimension(now, dimension.attributeTypeCode());
      } else {
        outline.categorise(now, dimension.category());
        // An attribute dimension has properties of its own.
        outline.change(now, new Changes().shareCode(dimension.shareCode())
            .consolidationCode(dimension.consolidationCode()));
      }
      outline.move(now, place);
    }
    if (now.isHybridAnalysisEnabled() != dimension.isHybridAnalysisEnabled()) {
      outline.setHybridAnalysis(now, dimension.isHybridAnalysisEnabled());
    }
    List<String> has = MemberParts.attributes(outline.read(now, Details.NONE.attributes()));
    for (String attribute : attributeDimensions) {
      if (!has.contains(attribute)) {
        outline.attributes().associate(now, outline.find(attribute).get());
      }
    }
  }

  /** Gives the dimension its names of generations and levels, and the time series. */
  void restoreNames(Outline outline, Member now) {
    generations.forEach((number, name) -> outline.generations().name(now, number, name));
    levels.forEach((number, name) -> outline.levels().name(now, number, name));
    enable(outline, series);
  }

  /** Enables time series, with their aliases. */
  static void enable(Outline outline, List<DynamicTimeSeries> series) {
    for (DynamicTimeSeries one : series) {
      outline.timeSeries().enable(one.getName(), one.getGeneration());
      one.getAliases().forEach(
          (table, alias) -> outline.timeSeries().alias(one.getName(), table, alias));
    }
  }
}
