package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.outline.AliasTables;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Stream;

/** The edits of whole alias tables. */
final class AliasTableEdits {
  private static final int BATCH = 1000;

  private AliasTableEdits() {}

  /**
   * What is in a table. Members are told by their place in the outline: when an edit is taken
   * back, the outline is as it was, only its handles may be others.
   */
  private static final class Content {
    private int[] places = new int[16];
    private final List<String> aliases = new ArrayList<>();
    private final Map<String, String> series = new HashMap<>();

    static Content of(Outline outline, String table) {
      Content content = new Content();
      int place = 0;
      for (Member dimension : outline.dimensions()) {
        try (Stream<Member> all = outline.subtree(dimension, Details.NONE.aliases(table))) {
          for (Member member : (Iterable<Member>) all::iterator) {
            String alias = member.alias(table);
            if (!alias.isEmpty()) {
              content.add(place, alias);
            }
            place++;
          }
        }
      }
      for (DynamicTimeSeries one : outline.timeSeries().enabled()) {
        String alias = one.getAliases().get(table);
        if (alias != null && !alias.isEmpty()) {
          content.series.put(one.getName(), alias);
        }
      }
      return content;
    }

    private void add(int place, String alias) {
      if (aliases.size() == places.length) {
        places = Arrays.copyOf(places, 2 * places.length);
      }
      places[aliases.size()] = place;
      aliases.add(alias);
    }

    /** The handles of the members now, in the order of {@link #aliases}. */
    private int[] handles(Outline outline) {
      int[] handles = new int[aliases.size()];
      int next = 0;
      int place = 0;
      for (Member dimension : outline.dimensions()) {
        try (Stream<Member> all = outline.subtree(dimension, Details.NONE)) {
          for (Member member : (Iterable<Member>) all::iterator) {
            if (next < handles.length && places[next] == place) {
              handles[next++] = member.handle();
            }
            place++;
          }
        }
      }
      return handles;
    }

    /** Fills an empty table. */
    void restore(EditContext context, String table) {
      Outline outline = context.outline();
      int[] handles = handles(outline);
      for (int from = 0; from < handles.length; from += BATCH) {
        context.progress(from, handles.length);
        int to = Math.min(handles.length, from + BATCH);
        List<Member> members =
            outline.read(Arrays.copyOfRange(handles, from, to), Details.NONE);
        for (int i = from; i < to; i++) {
          outline.change(members.get(i - from), new Changes().alias(table, aliases.get(i)));
        }
      }
      series.forEach((name, alias) -> outline.timeSeries().alias(name, table, alias));
    }
  }

  /** What is in a table; null when there is no such table. */
  private static Content content(EditContext context, String table) {
    return context.outline().aliasTables().names().contains(table)
        ? Content.of(context.outline(), table) : null;
  }

  /** Makes a table be as it was; null for not being there. */
  private static void restore(EditContext context, String table, Content content) {
    AliasTables tables = context.outline().aliasTables();
    boolean there = tables.names().contains(table);
    if (content == null) {
      if (there) {
        tables.delete(table);
      }
      return;
    }
    if (there) {
      tables.clear(table);
    } else {
      tables.create(table);
    }
    content.restore(context, table);
  }

  private interface Change {
    void of(AliasTables tables);
  }

  private static Edit edit(String title, String table, Change change) {
    return new StateEdit<>(title, context -> content(context, table),
        context -> change.of(context.outline().aliasTables()),
        (context, before) -> restore(context, table, before), OutlineChange::aliasTables);
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
    return new StateEdit<>("Rename the alias table " + table + " to " + name,
        context -> null, context -> context.outline().aliasTables().rename(table, name),
        (context, before) -> {
          AliasTables tables = context.outline().aliasTables();
          if (!tables.names().contains(table)) {
            tables.rename(name, table);
          }
        }, OutlineChange::aliasTables);
  }

  static Edit delete(String table) {
    return new StateEdit<>("Delete the alias table " + table,
        context -> new Object[] {
            context.outline().aliasTables().names(), content(context, table)},
        context -> context.outline().aliasTables().delete(table),
        (context, before) -> {
          restore(context, table, (Content) before[1]);
          List<?> names = (List<?>) before[0];
          for (Object behind : names.subList(names.indexOf(table) + 1, names.size())) {
            moveToEnd(context.outline().aliasTables(), behind.toString());
          }
        }, OutlineChange::aliasTables);
  }

  /** Tables stand in the order in which they were made, so one that is to be last is made anew. */
  private static void moveToEnd(AliasTables tables, String table) {
    String other = "moving";
    while (tables.names().contains(other)) {
      other += "_";
    }
    tables.copy(table, other, false);
    tables.delete(table);
    tables.rename(other, table);
  }

  /** Sets aliases of members by their names, in a table that is made if need be. */
  static Edit fill(String table, List<String> names, List<String> aliases) {
    return new StateEdit<>("Import " + aliases.size() + " aliases into " + table,
        context -> content(context, table), context -> {
          Outline outline = context.outline();
          if (!outline.aliasTables().names().contains(table)) {
            outline.aliasTables().create(table);
          }
          for (int i = 0; i < names.size(); i++) {
            context.progress(i, names.size());
            Changes changes = new Changes().alias(table, aliases.get(i));
            outline.find(names.get(i)).ifPresent(member -> outline.change(member, changes));
          }
        }, (context, before) -> restore(context, table, before), OutlineChange::aliasTables);
  }
}
