package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.IntHolder;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.SavedFile;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.MemberVerifyError;
import com.olvane.kep.olvane.defs.outline.VerifyFinding;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Page;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.file.Files;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Currency;
import java.util.List;
import java.util.Locale;
import java.util.stream.Collectors;

/** The life of an outline: verified, locked, saved elsewhere, counted, and turned to currencies. */
final class LifeAct implements Act {
  private static final String COPY = "Copy";
  private static final String RATES = "Rates";
  private static final String PLAIN = "Plain names";
  private static final int EXCERPT = 4;

  @Override
  public String title() {
    return "Verifying, saving and deriving";
  }

  @Override
  public void play(Tour tour) {
    try (Outline open = tour.edit(Tour.DATABASE)) {
      verify(tour, open);
      verifyPlainNames(tour, open);
      tour.time("save as another database", () -> {
        tour.saveAs(open, COPY);
        return tour.plan().members().size();
      });
      tour.print("  Saved as %s.%s, restructured: %s", Tour.APPLICATION, COPY,
          tour.session().isRestructured(Tour.APPLICATION, COPY) ? "yes" : "no");
      saveToFile(tour, open);
      tour.print("  Lock of %s.%s: %d while it is edited here, %d for %s.%s",
          Tour.APPLICATION, Tour.DATABASE, lock(tour, Tour.DATABASE), lock(tour, COPY),
          Tour.APPLICATION, COPY);
      deriveCurrencies(tour, open);
    }
    countCells(tour);
    printRates(tour);
  }

  private static List<VerifyFinding> verify(Tour tour, Outline open) {
    List<VerifyFinding> findings = new ArrayList<>();
    tour.time("verify the outline", () -> {
      check("verify the outline", OutlineJni.verifyOutlineEdit(
          open.instance(), tour.session().context(), open.handle(), findings));
      return tour.plan().members().size();
    });
    tour.print("  Verified: %d of %,d members have errors", findings.size(),
        tour.plan().members().size());
    findings.stream()
        .flatMap(finding -> finding.getSentences().stream())
        .limit(EXCERPT)
        .forEach(sentence -> tour.print("    %s", sentence));
    return findings;
  }

  /** Subdivisions of different countries share names: as plain aliases they would clash. */
  private static void verifyPlainNames(Tour tour, Outline open) {
    check("create the alias table " + PLAIN,
        OutlineJni.createAliasTable(open.instance(), open.handle(), PLAIN));
    for (PlannedMember member : tour.plan().members()) {
      String name = member.plainAliases[0];
      if (member.attribute != null
          && DefaultMember.encodedLength(name) <= DefaultMember.MAX_NAME_BYTES) {
        check("assign the alias " + name, OutlineJni.assignMemberAlias(
            open.instance(), open.handle(), open.find(member.name).get().handle(), PLAIN, name));
      }
    }
    tour.print("  With plain names as aliases, as the standard has them:");
    List<VerifyFinding> findings = verify(tour, open);
    List<String> clashes = findings.stream()
        .filter(MemberVerifyError.class::isInstance)
        .map(finding -> tour.plan().find(((MemberVerifyError) finding).getName()))
        .collect(Collectors.groupingBy(member -> member.plainAliases[0], Collectors.counting()))
        .entrySet().stream()
        .filter(entry -> entry.getValue() > 1)
        .sorted((a, b) -> Long.compare(b.getValue(), a.getValue()))
        .limit(EXCERPT)
        .map(entry -> entry.getValue() + " × " + entry.getKey())
        .collect(Collectors.toList());
    tour.print("    Most often: %s", String.join(", ", clashes));
    check("delete the alias table " + PLAIN,
        OutlineJni.deleteAliasTable(open.instance(), open.handle(), PLAIN));
  }

  private static void saveToFile(Tour tour, Outline open) {
    SavedFile file = new SavedFile();
    check("save the outline to a file", OutlineJni.saveAsFileBegin(
        open.instance(), tour.session().context(), open.handle(), file));
    tour.print("  Saved to a file: %s, %,d bytes", file.getLocation(), file.getFileSize());
    try {
      // Whoever saves to the scratch area clears it up.
      Files.delete(Paths.get(file.getLocation()));
    } catch (IOException e) {
      throw new UncheckedIOException("The file that was saved cannot be removed", e);
    }
  }

  private static int lock(Tour tour, String database) {
    return OutlineJni.getLockedState(
        tour.session().instance(), tour.session().context(), Tour.APPLICATION, database);
  }

  /** Tells every country its currency, and derives the currency database from that. */
  private static void deriveCurrencies(Tour tour, Outline open) {
    check("make Geography the country dimension", OutlineJni.assignMemberDimensionCategory(
        open.instance(), open.handle(), open.find("Geography").get().handle(),
        new DimensionCategory(DimensionCategory.COUNTRY), null));
    for (PlannedMember country : tour.plan().countries()) {
      Currency currency = Currency.getInstance(new Locale("", country.name));
      if (currency != null) {
        check("set the currency of " + country.name, OutlineJni.assignMemberCategory(
            open.instance(), open.handle(), open.find(country.name).get().handle(),
            currency.getCurrencyCode()));
      }
    }
    for (String measure : new String[] {"Sales", "Costs"}) {
      check("set the currency category of " + measure, OutlineJni.assignMemberCategory(
          open.instance(), open.handle(), open.find(measure).get().handle(), "Average rate"));
    }
    tour.create(RATES);
    tour.time("derive the currency database", () -> {
      check("derive the currency database", OutlineJni.generateCurrencyDB(open.instance(),
          open.handle(), tour.session().context(), Tour.APPLICATION, RATES));
      return tour.plan().members().size();
    });
  }

  private static void countCells(Tour tour) {
    tour.session().setActive(Tour.APPLICATION, Tour.DATABASE);
    for (String area : new String[] {"", "\"" + tour.plan().featured().name + "\", Qtr1, Sales"}) {
      IntHolder count = new IntHolder();
      check("count the cells",
          OutlineJni.getCellCount(tour.session().context(), area, count));
      tour.print("  Cells of %s: %,d", area.isEmpty() ? "the whole database" : area,
          count.getValue());
    }
    tour.print("  Data loaded: %s before, %s after marking the database",
        dataLoaded(tour), afterMarking(tour));
  }

  private static String afterMarking(Tour tour) {
    tour.session().setDataLoaded(Tour.APPLICATION, Tour.DATABASE, true);
    String loaded = dataLoaded(tour);
    tour.session().setDataLoaded(Tour.APPLICATION, Tour.DATABASE, false);
    return loaded;
  }

  private static String dataLoaded(Tour tour) {
    int loaded = OutlineJni.getDataLoaded(tour.session().instance(), tour.session().context(),
        Tour.APPLICATION, Tour.DATABASE);
    // -1 is this method's word for yes.
    if (loaded != -1) {
      check("tell whether data is loaded", loaded);
    }
    return loaded == -1 ? "yes" : "no";
  }

  private static void printRates(Tour tour) {
    try (Outline open = tour.browse(RATES)) {
      tour.print("  Currency database %s.%s", Tour.APPLICATION, RATES);
      for (Member dimension : open.dimensions()) {
        Page first = open.page(dimension, 0, EXCERPT, Details.NONE);
        String names =
            first.members().stream().map(Member::name).collect(Collectors.joining(", "));
        tour.print("    %-18s %s%s", dimension, names.isEmpty() ? "no members yet" : names,
            first.hasNext() ? ", …" : "");
      }
      Member group = open.find(tour.plan().featured().parent.name).get();
      tour.print("    %s: %s", group, open.children(group, Details.NONE)
          .map(member -> member + " " + member.currencyMember())
          .collect(Collectors.joining(", ")));
    }
  }
}
