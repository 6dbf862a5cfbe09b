package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NumberedNames;
import com.olvane.kep.olvane.outline.Outline;
import java.util.List;
import java.util.Map;
import java.util.function.BiConsumer;
import java.util.function.Consumer;
import java.util.function.Function;

/** The edits of what a dimension has besides its members. */
final class DimensionEdits {
  private DimensionEdits() {}

  private static void dimensionsChanged(OutlineChange change) {
    change.settings();
    change.children(OutlineChange.DIMENSIONS);
  }

  /** Names a generation or level of a dimension; an empty name takes the name away. */
  static Edit name(Member dimension, boolean generation, int number, String name) {
    Ref ref = Ref.to(dimension);
    Function<Outline, NumberedNames> names =
        generation ? Outline::generations : Outline::levels;
    BiConsumer<EditContext, String> set = (context, text) -> {
      NumberedNames all = names.apply(context.outline());
      Member now = context.member(ref);
      if (!text.isEmpty()) {
        all.name(now, number, text);
      } else if (all.given(now).contains(all.all(now).get(number))) {
        all.remove(now, number);
      }
    };
    String what = (generation ? "generation " : "level ") + number + " of " + dimension.name();
    return new StateEdit<>(name.isEmpty() ? "Remove the name of " + what : "Name " + what,
        context -> given(names.apply(context.outline()), context.member(ref), number),
        context -> set.accept(context, name), set::accept, OutlineChange::settings);
  }

  /** The name that was given to a number; empty where none was. */
  static String given(NumberedNames names, Member dimension, int number) {
    String name = names.all(dimension).get(number);
    return name != null && names.given(dimension).contains(name) ? name : "";
  }

  /** What changing the kind of a dimension may take with it. */
  private static final class Kind {
    final Member dimension;
    final Target place;
    final Associations associations;
    final DimensionParts parts;

    Kind(EditContext context, Member dimension) {
      this.dimension = dimension;
      place = Target.of(context, dimension);
      associations = Associations.of(context, dimension);
      parts = DimensionParts.of(context, dimension);
    }

    void restore(EditContext context, Ref ref) {
      Outline outline = context.outline();
      Member now = context.member(ref);
      if (now.storageTypeCode() != dimension.storageTypeCode()) {
        outline.setStorageType(now, dimension.storageTypeCode());
      }
      if (now.categoryCode() != dimension.categoryCode()) {
        outline.categorise(now, dimension.category());
        outline.move(context.member(ref), place.place(context));
        // An attribute dimension has properties of its own.
        outline.change(context.member(ref), new Changes().shareCode(dimension.shareCode())
            .consolidationCode(dimension.consolidationCode()));
      }
      if (now.isHybridAnalysisEnabled() != dimension.isHybridAnalysisEnabled()) {
        outline.setHybridAnalysis(now, dimension.isHybridAnalysisEnabled());
      }
      Member restored = context.member(ref);
      associations.restore(context, context.handlesOf(restored));
      parts.restoreNames(outline, restored);
    }
  }

  private static Edit kind(String title, Member dimension, BiConsumer<Outline, Member> change) {
    Ref ref = Ref.to(dimension);
    return new StateEdit<>(title, context -> new Kind(context, context.member(ref)),
        context -> change.accept(context.outline(), context.member(ref)),
        (context, before) -> before.restore(context, ref), DimensionEdits::dimensionsChanged);
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
    return new StateEdit<>(
        (associated ? "Associate " : "Dissociate ") + base.name() + " and " + attribute.name(),
        context -> Associations.of(context, context.member(ref)),
        context -> associate(context, ref, other, associated),
        (context, before) -> {
          if (associated) {
            associate(context, ref, other, false);
          } else {
            before.restore(context, context.handlesOf(context.member(ref)));
          }
        }, DimensionEdits::dimensionsChanged);
  }

  private static void associate(EditContext context, Ref base, Ref attribute, boolean associated) {
    Outline outline = context.outline();
    if (associated) {
      outline.attributes().associate(context.member(base), context.member(attribute));
    } else {
      outline.attributes().dissociate(context.member(base), context.member(attribute));
    }
  }

  // ---- Time series ----

  private static DynamicTimeSeries find(Outline outline, String name) {
    for (DynamicTimeSeries one : outline.timeSeries().enabled()) {
      if (one.getName().equals(name)) {
        return one;
      }
    }
    return null;
  }

  private static void enable(Outline outline, String name, int generation) {
    DynamicTimeSeries now = find(outline, name);
    if (generation > 0 && (now == null || now.getGeneration() != generation)) {
      outline.timeSeries().enable(name, generation);
    } else if (generation == 0 && now != null) {
      outline.timeSeries().disable(name, now.getGeneration());
    }
  }

  /** Takes down all time series, changes them, and takes that back: their order counts, too. */
  private static Edit series(String title, Consumer<Outline> change) {
    return new StateEdit<List<DynamicTimeSeries>>(title,
        context -> context.outline().timeSeries().enabled(),
        context -> change.accept(context.outline()),
        (context, before) -> restoreSeries(context.outline(), before), OutlineChange::settings);
  }

  private static void restoreSeries(Outline outline, List<DynamicTimeSeries> before) {
    for (DynamicTimeSeries one : outline.timeSeries().enabled()) {
      for (String table : one.getAliases().keySet()) {
        outline.timeSeries().alias(one.getName(), table, "");
      }
      outline.timeSeries().disable(one.getName(), one.getGeneration());
    }
    for (DynamicTimeSeries one : before) {
      outline.timeSeries().enable(one.getName(), one.getGeneration());
      for (Map.Entry<String, String> alias : one.getAliases().entrySet()) {
        outline.timeSeries().alias(one.getName(), alias.getKey(), alias.getValue());
      }
    }
  }

  /** Enables a time series on a generation, or with 0 disables it. */
  static Edit series(String name, int generation) {
    return series(generation == 0 ? "Disable " + name : "Enable " + name,
        outline -> enable(outline, name, generation));
  }

  /** Sets the alias of a time series; an empty one takes it away. */
  static Edit seriesAlias(String name, String table, String alias) {
    return series("Set the alias in " + table + " of " + name,
        outline -> outline.timeSeries().alias(name, table, alias));
  }
}
