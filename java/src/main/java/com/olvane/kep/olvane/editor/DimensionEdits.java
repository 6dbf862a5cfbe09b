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
import java.util.function.BiConsumer;
import java.util.function.Consumer;
import java.util.function.Function;

/** The edits of what a dimension has besides its members. */
final class DimensionEdits {
  private DimensionEdits() {}

  /** Names a generation or level of a dimension; an empty name takes the name away. */
  static Edit name(Member dimension, boolean generation, int number, String name) {
    Ref ref = Ref.to(dimension);
    Function<EditContext, NumberedNames> names = context -> generation
        ? context.outline.generations() : context.outline.levels();
    String what = (generation ? "generation " : "level ") + number + " of " + dimension.name();
    return Edit.set(name.isEmpty() ? "Remove the name of " + what : "Name " + what + ": " + name,
        context -> Parts.given(names.apply(context), context.member(ref)).getOrDefault(number, ""),
        (context, text) -> {
          NumberedNames all = names.apply(context);
          Member now = context.member(ref);
          if (!text.isEmpty()) {
            all.name(now, number, text);
          } else if (Parts.given(all, now).containsKey(number)) {
            all.remove(now, number);
          }
        }, name);
  }

  // ---- The kind of a dimension ----

  private static Edit kind(String title, Member dimension, BiConsumer<Outline, Member> change) {
    Ref ref = Ref.to(dimension);
    return Edit.restoring(title, context -> {
      Member before = context.member(ref, Details.NONE.place());
      Target place = Target.of(context, before);
      Parts parts = new Parts(context, before);
      Consumer<EditContext> associations = PlacedTexts.associations(context, before);
      return again -> {
        parts.restoreKind(again, again.member(ref), place.place(again));
        associations.accept(again);
        parts.restoreNames(again.outline, again.member(ref));
      };
    }, context -> change.accept(context.outline, context.member(ref)));
  }

  static Edit categorise(Member dimension, DimensionCategory category) {
    return kind("Make " + dimension.name() + " a dimension of " + category.words(), dimension,
        (outline, now) -> outline.categorise(now, category));
  }

  static Edit storageType(Member dimension, short code) {
    return kind("Set the storage type of " + dimension.name(), dimension,
        (outline, now) -> outline.setStorageType(now, code));
  }

  static Edit hybridAnalysis(Member dimension, boolean enabled) {
    return kind((enabled ? "Enable" : "Disable") + " hybrid analysis of " + dimension.name(),
        dimension, (outline, now) -> outline.setHybridAnalysis(now, enabled));
  }

  /** Associates an attribute dimension with a base dimension, or takes that back. */
  static Edit associate(Member base, Member attribute, boolean associated) {
    Ref other = Ref.to(attribute);
    Ref ref = Ref.to(base);
    Consumer<EditContext> dissociate = context ->
        context.outline.attributes().dissociate(context.member(ref), context.member(other));
    return Edit.restoring(
        (associated ? "Associate " : "Dissociate ") + base.name() + " and " + attribute.name(),
        context -> associated ? dissociate
            : PlacedTexts.associations(context, context.member(ref)),
        associated ? context -> context.outline.attributes()
            .associate(context.member(ref), context.member(other)) : dissociate);
  }

  // ---- Time series ----

  /** Takes down all time series, changes them, and takes that back: their order counts, too. */
  private static Edit series(String title, Consumer<Outline> change) {
    return Edit.restoring(title, context -> {
      List<DynamicTimeSeries> before = context.outline.timeSeries().enabled();
      return again -> {
        Outline outline = again.outline;
        for (DynamicTimeSeries one : outline.timeSeries().enabled()) {
          one.getAliases().keySet().forEach(
              table -> outline.timeSeries().alias(one.getName(), table, ""));
          outline.timeSeries().disable(one.getName(), one.getGeneration());
        }
        Parts.enable(outline, before);
      };
    }, context -> change.accept(context.outline));
  }

  /** Enables a time series on a generation, or with 0 disables it. */
  static Edit series(String name, int generation) {
    return series(generation == 0 ? "Disable " + name : "Enable " + name, outline -> {
      int now = outline.timeSeries().enabled().stream().filter(one -> one.getName().equals(name))
          .mapToInt(DynamicTimeSeries::getGeneration).findFirst().orElse(0);
      if (generation == 0 && now != 0) {
        outline.timeSeries().disable(name, now);
      } else if (generation != now) {
        outline.timeSeries().enable(name, generation);
      }
    });
  }

  /** Sets the alias of a time series; an empty one takes it away. */
  static Edit seriesAlias(String name, String table, String alias) {
    return series("Set the alias in " + table + " of " + name,
        outline -> outline.timeSeries().alias(name, table, alias));
  }

  /** What a dimension has besides its members: its kind, named generations and levels, series. */
  static final class Parts {
    private final Member dimension;
    private final Map<Integer, String> generations;
    private final Map<Integer, String> levels;
    private final List<String> attributeDimensions;
    private final List<DynamicTimeSeries> series = new ArrayList<>();

    /** Takes them down as they are now. */
    Parts(EditContext context, Member dimension) {
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
      boolean isAttribute = dimension.category() == DimensionCategory.ATTRIBUTE;
      // One that was made among attribute dimensions is one, of a type of its own.
      if (now.categoryCode() != dimension.categoryCode()
          || isAttribute && now.attributeTypeCode() != dimension.attributeTypeCode()) {
        if (isAttribute) {
          outline.makeAttributeDimension(now, dimension.attributeTypeCode());
        } else {
          outline.categorise(now, dimension.category());
          // An attribute dimension has properties of its own.
          Changes changes = new Changes();
          MemberParts.PROPERTIES.forEach(
              part -> part.set(changes, part.read.apply(now), part.read.apply(dimension)));
          outline.change(now, changes);
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
}
