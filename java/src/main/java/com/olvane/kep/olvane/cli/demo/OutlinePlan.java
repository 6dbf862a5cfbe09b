package com.olvane.kep.olvane.cli.demo;

import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import java.text.Normalizer;
import java.time.LocalDate;
import java.time.Month;
import java.time.format.DateTimeFormatter;
import java.time.format.TextStyle;
import java.util.ArrayList;
import java.util.Comparator;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.Set;
import java.util.stream.Collectors;

/**
 * The outline that the demo builds: the world by initial, country and subdivision, the currencies,
 * a year and a few measures. Members are named by their codes, which never clash; what people read
 * are aliases.
 */
final class OutlinePlan {
  /** The alias tables: the default table, which speaks English, then one per language. */
  static final String[] TABLES = {"Default", "French", "German", "Japanese"};

  private static final Locale[] LOCALES = {
    Locale.ENGLISH, Locale.FRENCH, Locale.GERMAN, Locale.JAPANESE
  };

  private final List<PlannedMember> dimensions = new ArrayList<>();
  private final List<PlannedMember> members = new ArrayList<>();
  private final List<PlannedMember> countries = new ArrayList<>();
  private final Map<String, PlannedMember> byName = new HashMap<>();
  private final List<Set<String>> takenAliases = new ArrayList<>();

  /**
   * Plans the outline.
   *
   * @param codes the code lists
   * @param countries the number of countries to take, in the order of their English names
   */
  OutlinePlan(IsoCodes codes, int countries) {
    planGeography(codes, countries);
    planCurrencies(codes);
    planYear();
    planMeasures();
    for (PlannedMember dimension : dimensions) {
      collect(dimension);
    }
    // An alias must not be mistaken for a member, nor for another alias of its table.
    for (int table = 0; table < TABLES.length; table++) {
      Set<String> taken = new HashSet<>();
      byName.keySet().forEach(name -> taken.add(fold(name)));
      takenAliases.add(taken);
    }
    // The nearer to the top a member stands, the plainer its alias.
    members.stream()
        .sorted(Comparator.comparingInt(PlannedMember::depth))
        .forEach(this::settleAliases);
  }

  private void planGeography(IsoCodes codes, int limit) {
    PlannedMember geography = dimension("Geography", "World", "Monde", "Welt", "世界");
    List<IsoCodes.Entry> entries = new ArrayList<>(codes.countries());
    entries.sort(Comparator.comparing(country -> plain(country.name)));
    PlannedMember group = null;
    for (IsoCodes.Entry country : entries.subList(0, Math.min(limit, entries.size()))) {
      String groupName = "Countries " + plain(country.name).charAt(0);
      if (group == null || !group.name.equals(groupName)) {
        group = member(groupName, geography);
      }
      PlannedMember member = member(country.code, group);
      nameIn(member, country);
      countries.add(member);
      member.comment = country.remark;
    }
    Map<String, IsoCodes.Entry> parts = new HashMap<>();
    codes.subdivisions().forEach(part -> parts.put(part.code, part));
    codes.subdivisions().forEach(part -> subdivision(part, parts));
  }

  /** Plans a subdivision after the one it is part of, wherever that stands in the list. */
  private PlannedMember subdivision(IsoCodes.Entry part, Map<String, IsoCodes.Entry> parts) {
    PlannedMember planned = byName.get(part.code);
    if (planned != null) {
      return planned;
    }
    IsoCodes.Entry whole = part.parent == null ? null : parts.get(part.parent);
    PlannedMember parent =
        whole == null
            ? byName.get(part.code.substring(0, part.code.indexOf('-')))
            : subdivision(whole, parts);
    if (parent == null) {
      return null; // its country is left out
    }
    planned = member(part.code, parent);
    nameIn(planned, part);
    planned.attribute = part.type;
    return planned;
  }

  private void planCurrencies(IsoCodes codes) {
    PlannedMember dimension = dimension("Currency", "Currencies", "Monnaies", "Währungen", "通貨");
    for (IsoCodes.Entry currency : codes.currencies()) {
      PlannedMember member = member(currency.code, dimension);
      nameIn(member, currency);
      // Amounts in different currencies do not add up.
      member.consolidation = Consolidation.ATTRIBUTE;
    }
  }

  private void planYear() {
    PlannedMember year = dimension("Year", "Calendar year", "Année civile", "Kalenderjahr", "暦年");
    year.category = DimensionCategory.TIME;
    for (int quarter = 1; quarter <= 4; quarter++) {
      PlannedMember parent = member("Qtr" + quarter, year);
      Month first = Month.of(3 * quarter - 2);
      LocalDate day = LocalDate.of(2000, first, 1);
      for (int table = 0; table < TABLES.length; table++) {
        parent.aliases[table] = DateTimeFormatter.ofPattern("qqqq", LOCALES[table]).format(day);
      }
      for (int month = 0; month < 3; month++) {
        Month value = first.plus(month);
        PlannedMember member =
            member(value.getDisplayName(TextStyle.SHORT, Locale.ENGLISH), parent);
        for (int table = 0; table < TABLES.length; table++) {
          member.aliases[table] =
              value.getDisplayName(TextStyle.FULL_STANDALONE, LOCALES[table]);
        }
      }
    }
  }

  private void planMeasures() {
    PlannedMember measures = dimension("Measures", "Key figures", "Indicateurs", "Kennzahlen", "指標");
    measures.category = DimensionCategory.ACCOUNTS;
    PlannedMember profit =
        measure("Profit", measures, "Operating profit", "Bénéfice", "Betriebsgewinn", "営業利益");
    profit.formula = "Sales - Costs;";
    measure("Sales", profit, "Net sales", "Chiffre d'affaires", "Umsatz", "売上高");
    measure("Costs", profit, "Total costs", "Coûts", "Gesamtkosten", "費用");
    PlannedMember margin =
        measure("Margin", measures, "Profit margin", "Marge", "Gewinnspanne", "利益率");
    margin.formula = "Profit / Sales * 100;";
  }

  private PlannedMember measure(String name, PlannedMember parent, String... aliases) {
    PlannedMember measure = member(name, parent);
    System.arraycopy(aliases, 0, measure.aliases, 0, aliases.length);
    return measure;
  }

  private PlannedMember dimension(String name, String... aliases) {
    PlannedMember dimension = member(name, null);
    System.arraycopy(aliases, 0, dimension.aliases, 0, aliases.length);
    dimensions.add(dimension);
    return dimension;
  }

  private PlannedMember member(String name, PlannedMember parent) {
    PlannedMember member = new PlannedMember(name, parent);
    if (byName.put(name, member) != null) {
      throw new IllegalStateException("The code " + name + " occurs twice");
    }
    return member;
  }

  private static void nameIn(PlannedMember member, IsoCodes.Entry entry) {
    member.aliases[0] = entry.name;
    System.arraycopy(entry.translations, 0, member.aliases, 1, entry.translations.length);
  }

  private void collect(PlannedMember member) {
    members.add(member);
    member.children.forEach(this::collect);
  }

  /** Makes each alias of a member one of its kind, or drops it where that is impossible. */
  private void settleAliases(PlannedMember member) {
    System.arraycopy(member.aliases, 0, member.plainAliases, 0, TABLES.length);
    for (int table = 0; table < TABLES.length; table++) {
      String alias = member.aliases[table];
      member.aliases[table] = null;
      if (alias == null || fold(alias).equals(fold(member.name))) {
        continue;
      }
      List<String> candidates = new ArrayList<>();
      candidates.add(alias);
      if (member.parent != null && member.parent.aliases[table] != null) {
        candidates.add(alias + ", " + member.parent.aliases[table]);
      }
      candidates.add(alias + " (" + member.name + ")");
      for (String candidate : candidates) {
        if (DefaultMember.encodedLength(candidate) <= DefaultMember.MAX_NAME_BYTES
            && takenAliases.get(table).add(fold(candidate))) {
          member.aliases[table] = candidate;
          break;
        }
      }
    }
  }

  private static String fold(String text) {
    return text.toLowerCase(Locale.ROOT);
  }

  /** Capital letters without accents, for sorting and initials. */
  private static String plain(String text) {
    return Normalizer.normalize(text, Normalizer.Form.NFD)
        .replaceAll("\\p{M}", "")
        .toUpperCase(Locale.ROOT);
  }

  /** {@return the dimensions in outline order} */
  List<PlannedMember> dimensions() {
    return dimensions;
  }

  /** {@return all members in outline order, each before its descendants} */
  List<PlannedMember> members() {
    return members;
  }

  /**
   * Finds a member by name.
   *
   * @param name the name
   * @return the member, or null if the plan has none of that name
   */
  PlannedMember find(String name) {
    return byName.get(name);
  }

  /** {@return the countries in outline order} */
  List<PlannedMember> countries() {
    return countries;
  }

  /**
   * Finds the countries with most children.
   *
   * @param count the number of countries wanted
   * @return the countries, the largest first
   */
  List<PlannedMember> largestCountries(int count) {
    return countries.stream()
        .sorted(Comparator.comparingInt((PlannedMember country) -> -country.children.size()))
        .limit(count)
        .collect(Collectors.toList());
  }

  /** {@return a country worth a closer look} */
  PlannedMember featured() {
    return byName.getOrDefault("JP", largestCountries(1).get(0));
  }
}
