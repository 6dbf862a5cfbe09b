package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.outline.AliasTables;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Outline;
import java.util.Collections;
import java.util.List;
import java.util.Map;
import java.util.function.Consumer;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The edits of whole alias tables. */
final class AliasTableEdits {
  private AliasTableEdits() {}

  /** Takes down a table, which may not be there; what is given makes it be as it was. */
  private static Consumer<EditContext> keep(EditContext context, String table) {
    Outline outline = context.outline;
    AliasTables tables = outline.aliasTables();
    if (!tables.names().contains(table)) {
      return again -> {
        if (tables.names().contains(table)) {
          tables.delete(table);
        }
      };
    }
    PlacedTexts aliases = new PlacedTexts(context, outline.dimensions(),
        Details.NONE.aliases(table), member -> member.alias(table).isEmpty()
            ? Collections.emptyList() : Collections.singletonList(member.alias(table)));
    List<DynamicTimeSeries> series = outline.timeSeries().enabled();
    return again -> {
      if (tables.names().contains(table)) {
        tables.clear(table);
      } else {
        tables.create(table);
      }
      aliases.restore(again, Details.NONE,
          (member, alias) -> outline.change(member, new Changes().alias(table, alias)));
      for (DynamicTimeSeries one : series) {
        String alias = one.getAliases().get(table);
        if (alias != null && !alias.isEmpty()) {
          outline.timeSeries().alias(one.getName(), table, alias);
        }
      }
    };
  }

  private static Edit edit(String title, String table, Consumer<AliasTables> change) {
    return Edit.restoring(title, context -> keep(context, table),
        context -> change.accept(context.outline.aliasTables()));
  }

  static Edit create(String table) {
    return edit("Create the alias table " + table, table, tables -> tables.create(table));
  }

  /** Copies a table; one of the new name is replaced. */
  static Edit copy(String table, String copy) {
    return edit("Copy the alias table " + table + " to " + copy, copy,
        tables -> tables.copy(table, copy, true));
  }

  static Edit clear(String table) {
    return edit("Clear the alias table " + table, table, tables -> tables.clear(table));
  }

  static Edit rename(String table, String name) {
    return new Edit("Rename the alias table " + table + " to " + name,
        step(tables -> tables.rename(table, name), tables -> tables.rename(name, table)));
  }

  private static Edit.Step step(Consumer<AliasTables> forth, Consumer<AliasTables> back) {
    return context -> {
      forth.accept(context.outline.aliasTables());
      return step(back, forth);
    };
  }

  /**
   * Makes a table the default, which is the first; the one that was comes last. Whatever the first
   * is called, "Default" means it: no other can keep that name.
   */
  static Edit makeDefault(String table) {
    return new Edit("Make " + table + " the default alias table", context -> {
      AliasTables all = context.outline.aliasTables();
      List<String> names = all.names();
      String first = names.get(0);
      boolean keepsName = !first.equalsIgnoreCase("default");
      String old = free(all, keepsName ? "moving" : "Former default");
      return Edit.all(Stream.of(
          step(tables -> tables.copy(first, old, false), tables -> tables.delete(old)),
          step(tables -> tables.copy(table, first, true), tables -> tables.copy(old, first, true)),
          step(tables -> tables.delete(table), tables -> {
            tables.copy(first, table, false);
            moveBehind(tables, table, names);
          }),
          step(tables -> tables.rename(first, table), tables -> tables.rename(table, first)),
          step(tables -> tables.rename(old, first), tables -> tables.rename(first, old)))
          .limit(keepsName ? 5 : 4).collect(Collectors.toList())).run(context);
    });
  }

  static Edit delete(String table) {
    return Edit.restoring("Delete the alias table " + table, context -> {
      AliasTables tables = context.outline.aliasTables();
      List<String> names = tables.names();
      Consumer<EditContext> restore = keep(context, table);
      return again -> {
        restore.accept(again);
        moveBehind(tables, table, names);
      };
    }, context -> context.outline.aliasTables().delete(table));
  }

  /** Tables stand in the order in which they were made: those behind one are made anew. */
  private static void moveBehind(AliasTables tables, String table, List<String> order) {
    for (String behind : order.subList(order.indexOf(table) + 1, order.size())) {
      String other = free(tables, "moving");
      tables.copy(behind, other, false);
      tables.delete(behind);
      tables.rename(other, behind);
    }
  }

  /** A name that no table has: one that is proposed, or like it. */
  private static String free(AliasTables tables, String proposed) {
    String name = proposed;
    while (tables.names().contains(name)) {
      name += "_";
    }
    return name;
  }

  /** Sets aliases by the names of members, in a table that is made if need be. */
  static Edit fill(String table, Map<String, String> aliases) {
    String what = aliases.size() == 1 ? "an alias" : String.format("%,d aliases", aliases.size());
    return Edit.restoring("Import " + what + " into " + table,
        context -> keep(context, table), context -> {
          Outline outline = context.outline;
          if (!outline.aliasTables().names().contains(table)) {
            outline.aliasTables().create(table);
          }
          int done = 0;
          for (Map.Entry<String, String> one : aliases.entrySet()) {
            context.progress(done++, aliases.size());
            Changes changes = new Changes().alias(table, one.getValue());
            outline.find(one.getKey()).ifPresent(member -> outline.change(member, changes));
          }
        });
  }
}
