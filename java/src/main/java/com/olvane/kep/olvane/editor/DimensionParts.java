package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;

/** What a dimension has besides its members: category, names of generations, time series. */
final class DimensionParts {
  private final Member dimension;
  private Map<Integer, String> generations;
  private Map<Integer, String> levels;
  private final List<String> givenGenerations = new ArrayList<>();
  private final List<String> givenLevels = new ArrayList<>();
  private final List<DynamicTimeSeries> series = new ArrayList<>();
  private final List<Ref> attributeDimensions = new ArrayList<>();

  private DimensionParts(Member dimension) {
    this.dimension = dimension;
  }

  /** Takes them down as they are now. */
  static DimensionParts of(EditContext context, Member dimension) {
    Outline outline = context.outline();
    DimensionParts parts = new DimensionParts(dimension);
    for (Attribute attribute : outline.read(dimension, Details.NONE.attributes()).attributes()) {
      Ref ref = Ref.toHandle(attribute.handle());
      context.handle(ref);
      parts.attributeDimensions.add(ref);
    }
    parts.generations = outline.generations().all(dimension);
    parts.levels = outline.levels().all(dimension);
    parts.givenGenerations.addAll(outline.generations().given(dimension));
    parts.givenLevels.addAll(outline.levels().given(dimension));
    if (dimension.category() == DimensionCategory.TIME) {
      parts.series.addAll(outline.timeSeries().enabled());
    }
    return parts;
  }

  /** Gives a dimension without children the category and types, at its place. */
  void restoreKind(EditContext context, Member made, Place place) {
    Outline outline = context.outline();
    if (dimension.storageTypeCode() != made.storageTypeCode()) {
      outline.setStorageType(made, dimension.storageTypeCode());
    }
    if (dimension.categoryCode() != made.categoryCode()) {
      if (dimension.category() == DimensionCategory.ATTRIBUTE) {
        outline.makeAttributeDimension(made, dimension.attributeTypeCode());
      } else {
        outline.categorise(made, dimension.category());
      }
      outline.move(made, place);
    }
    if (dimension.isHybridAnalysisEnabled() != made.isHybridAnalysisEnabled()) {
      outline.setHybridAnalysis(made, dimension.isHybridAnalysisEnabled());
    }
    for (Ref attribute : attributeDimensions) {
      outline.attributes().associate(made, context.member(attribute));
    }
  }

  /** Gives the dimension its names of generations and levels, and the time series. */
  void restoreNames(Outline outline, Member made) {
    generations.forEach((number, name) -> {
      if (givenGenerations.contains(name)) {
        outline.generations().name(made, number, name);
      }
    });
    levels.forEach((number, name) -> {
      if (givenLevels.contains(name)) {
        outline.levels().name(made, number, name);
      }
    });
    for (DynamicTimeSeries one : series) {
      outline.timeSeries().enable(one.getName(), one.getGeneration());
      one.getAliases().forEach(
          (table, alias) -> outline.timeSeries().alias(one.getName(), table, alias));
    }
  }
}
