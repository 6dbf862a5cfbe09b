package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.GenerationOrLevel;
import com.olvane.kep.olvane.api.outline.MemberRequest;
import com.olvane.kep.olvane.defs.DefinedGeneration;
import com.olvane.kep.olvane.defs.DefinedLevel;
import com.olvane.kep.olvane.defs.calcscript.MemberInfo;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import com.olvane.kep.olvane.defs.outline.OutlineSettings;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;

/** What the editor's dialogs show: settings, alias tables, generations, time series, lists. */
final class ReadingAct implements Act {
  private static final int EXCERPT = 4;

  /** What the generations of Geography are called, from the dimension down. */
  private static final String[] GENERATIONS = {"World", "Initials", "Countries", "Subdivisions"};

  /** The aliases of the quarter-to-date entry, by the position of their table. */
  private static final String[] TO_DATE = {
    "Quarter to date", "Cumul trimestriel", "Quartal bis heute", "四半期累計"
  };

  private static final String QUARTER_TO_DATE = "Q-T-D";

  @Override
  public String title() {
    return "Reading settings, aliases, generations and lists";
  }

  @Override
  public void play(Tour tour) {
    name(tour);
    try (Outline open = tour.browse()) {
      printSettings(tour, open);
      printAliases(tour, open);
      printAttributes(tour, open);
      printGenerations(tour, open);
      printTimeSeries(tour, open);
      printLists(tour, open);
    }
  }

  /** Names generations and enables a time series, for there to be some to read. */
  private static void name(Tour tour) {
    try (Outline open = tour.edit(Tour.DATABASE)) {
      List<String> named = new ArrayList<>();
      check("list the named generations", OutlineJni.getGenerations(
          open.instance(), open.handle(), "Geography", named));
      for (int i = 0; i < GENERATIONS.length; i++) {
        if (!named.contains(GENERATIONS[i])) {
          check("name the generation " + GENERATIONS[i], OutlineJni.createGeneration(
              open.instance(), open.handle(), "Geography", GENERATIONS[i], (short) (i + 1)));
        }
      }
      check("enable " + QUARTER_TO_DATE, OutlineJni.enableDTSMember(
          open.instance(), open.handle(), QUARTER_TO_DATE, (short) 2, true));
      for (int table = 0; table < TO_DATE.length; table++) {
        check("name " + QUARTER_TO_DATE, OutlineJni.setDTSMemberAlias(open.instance(),
            open.handle(), QUARTER_TO_DATE, TO_DATE[table], OutlinePlan.TABLES[table]));
      }
      open.save();
    }
  }

  private static void printSettings(Tour tour, Outline open) {
    OutlineSettings settings = new OutlineSettings();
    check("read the settings",
        OutlineJni.getSettings(open.instance(), open.handle(), settings));
    AttributeSettings attributes = new AttributeSettings();
    check("read the attribute settings",
        OutlineJni.getAttributeSpecsEx(open.instance(), open.handle(), attributes));
    tour.print("  Settings             names %s case, dimensions are configured %s",
        settings.isCaseSensitive() ? "differ by" : "do not differ by",
        settings.isAutoConfigure() ? "automatically" : "by hand");
    tour.print("  Attribute members    %s / %s; %s: %s",
        attributes.getTrueText(), attributes.getFalseText(), attributes.getCalculationDimension(),
        String.join(", ", attributes.getSum(), attributes.getCount(), attributes.getAverage(),
            attributes.getMinimum(), attributes.getMaximum()));
    tour.print("  Alias tables         %s", settings.getAliasTables().stream()
        .map(table -> table.getName() + (table.isDefaultTable() ? " (default)" : ""))
        .collect(Collectors.joining(", ")));
  }

  /** Reads the aliases of all countries in all tables with one call. */
  private static void printAliases(Tour tour, Outline open) {
    List<MemberRequest> requests = tour.plan().countries().stream()
        .map(country -> new MemberRequest(country.name))
        .collect(Collectors.toList());
    List<MemberRequestResult> results = new ArrayList<>();
    tour.time("read aliases in one block call", () -> {
      check("read the aliases of the countries", OutlineJni.getMemberAliasesBlock(
          open.instance(), open.handle(), requests, results));
      return results.size();
    });
    Map<String, List<String>> byTable = new LinkedHashMap<>();
    for (MemberRequestResult result : results) {
      for (Object item : result.getData()) {
        MemberAlias alias = (MemberAlias) item;
        List<String> aliases =
            byTable.computeIfAbsent(alias.getTableName(), table -> new ArrayList<>());
        if (alias.getAliasName() != null) {
          aliases.add(alias.getAliasName());
        }
      }
    }
    tour.print("  Aliases of %d countries, in one call", results.size());
    byTable.forEach((table, aliases) ->
        tour.print("    %-9s %4d  %s", table, aliases.size(), excerpt(aliases)));
  }

  private static void printAttributes(Tour tour, Outline open) {
    List<String> kinds = new ArrayList<>();
    check("list the attributes of Geography", OutlineJni.getDimensionUDAS(
        open.instance(), open.handle(), "Geography", 0, kinds));
    Collections.sort(kinds);
    tour.print("  Kinds of subdivision %d: %s", kinds.size(), excerpt(kinds));
  }

  private static void printGenerations(Tour tour, Outline open) {
    List<GenerationOrLevel> generations = new ArrayList<>();
    check("list the generations", OutlineJni.getActualGenerations(
        open.instance(), open.handle(), "Geography", generations));
    List<GenerationOrLevel> levels = new ArrayList<>();
    check("list the levels", OutlineJni.getActualLevels(
        open.instance(), open.handle(), "Geography", levels));
    List<DefinedGeneration> allGenerations = new ArrayList<>();
    check("list all generations", OutlineJni.getAllGenerations(
        open.instance(), open.handle(), allGenerations));
    List<DefinedLevel> allLevels = new ArrayList<>();
    check("list all levels", OutlineJni.getAllLevels(
        open.instance(), open.handle(), allLevels));
    tour.print("  Generations          %s", join(generations));
    tour.print("  Levels               %s", join(levels));
    tour.print("  In all dimensions    %d generations, %d levels",
        allGenerations.size(), allLevels.size());
  }

  private static String join(List<GenerationOrLevel> items) {
    return items.stream().map(GenerationOrLevel::toString).collect(Collectors.joining(" · "));
  }

  private static void printTimeSeries(Tour tour, Outline open) {
    List<DynamicTimeSeries> entries = new ArrayList<>();
    check("list the time series", OutlineJni.getDTSMembersEx(
        open.instance(), open.handle(), entries));
    for (DynamicTimeSeries entry : entries) {
      tour.print("  Time series          %s on generation %d: %s", entry.getName(),
          entry.getGeneration(), String.join(" · ", entry.getAliases().values()));
    }
    List<String> periods = new ArrayList<>();
    check("list the periods", OutlineJni.listDTSLatestMembers(
        open.instance(), open.handle(), "Year", periods));
    tour.print("  Latest period        one of %s", excerpt(periods));
  }

  /** The lists that the calculation-script editor offers. */
  private static void printLists(Tour tour, Outline open) {
    List<MemberInfo> quarter = new ArrayList<>();
    check("list the members below Qtr1", OutlineJni.listOutlineMembers(
        open.instance(), open.handle(), "Qtr1", true, "German", quarter));
    tour.print("  Below Qtr1           %s", quarter.stream()
        .map(MemberInfo::getName)
        .collect(Collectors.joining(", ")));
    String text = "*island*";
    List<MemberInfo> found = new ArrayList<>();
    tour.time("find by wildcard with parents", () -> {
      check("find " + text, OutlineJni.listFindMembers(
          open.handle(), "Geography", text, true, "Default", found));
      return found.size();
    });
    tour.print("  Aliases like %s: %d, such as", text, found.size());
    for (MemberInfo member : found.subList(0, Math.min(EXCERPT, found.size()))) {
      tour.print("    %s, below %s", member.getName(), member.getParentName());
    }
  }

  private static String excerpt(List<String> texts) {
    List<String> first = texts.subList(0, Math.min(EXCERPT, texts.size()));
    return String.join(", ", first) + (texts.size() > first.size() ? ", …" : "");
  }
}
