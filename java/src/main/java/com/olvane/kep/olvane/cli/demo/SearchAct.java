package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.MemberPath;
import com.olvane.kep.olvane.outline.Outline;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;

/** Searches the outline in every way there is, and takes an alias table to another outline. */
final class SearchAct implements Act {
  private static final String TABLE = "French";
  private static final String OTHER = "Import";
  private static final int EXCERPT = 4;
  private static final int BATCH = 500;

  @Override
  public String title() {
    return "Searching, and moving an alias table";
  }

  @Override
  public void play(Tour tour) {
    try (Outline open = tour.browse()) {
      FindRequest byName = request("Qtr");
      find(tour, open, "name contains Qtr", byName);

      FindRequest byAlias = request("sankt");
      byAlias.setSearchMemberNames(false);
      byAlias.setAliasTableUsage(FindRequest.ALIASES_ONE_TABLE);
      byAlias.setAliasTable("German");
      find(tour, open, "German alias contains sankt", byAlias);

      FindRequest byAnyAlias = request("nord");
      byAnyAlias.setSearchMemberNames(false);
      byAnyAlias.setMatchWordsOnly(true);
      byAnyAlias.setAliasTableUsage(FindRequest.ALIASES_ALL_TABLES);
      find(tour, open, "any alias has the word nord", byAnyAlias);

      FindRequest byAttribute = request("Prefecture");
      byAttribute.setSearchMemberNames(false);
      byAttribute.setSearchUDAS(true);
      byAttribute.setMatchCaseOnly(true);
      byAttribute.setDimensionScope(FindRequest.SCOPE_DIMENSION);
      byAttribute.setDimensionName("Geography");
      find(tour, open, "attribute contains Prefecture", byAttribute);

      FindRequest byFormula = request("Sales");
      byFormula.setSearchMemberNames(false);
      byFormula.setSearchFormulas(true);
      byFormula.setMatchWordsOnly(true);
      find(tour, open, "formula has the word Sales", byFormula);
      printPaths(tour, open, "Nord");
    }
    moveTable(tour);
  }

  private static FindRequest request(String text) {
    FindRequest request = new FindRequest();
    request.setText(text);
    request.setMaximumMatchesPerBatch(BATCH);
    request.setMaximumMembersPerBatch(BATCH);
    return request;
  }

  private static void find(Tour tour, Outline open, String what, FindRequest request) {
    List<DefaultMember> matches = new ArrayList<>();
    int[] batches = new int[1];
    tour.time("find: " + what, () -> {
      try (ProgressLine progress = tour.progress()) {
        do {
          // The status is 0 always: a member that cannot be read is passed over.
          OutlineJni.findRequest(open.instance(), open.handle(), request, matches);
          batches[0]++;
          progress.show(String.format("Searching: %s ... %,d members, %,d matches", what,
              request.getMembersProcessed(), request.getMatchesFound()));
        } while (request.getLastHandle() != 0);
      }
      return request.getMembersProcessed();
    });
    tour.print("  %-29s %3d of %,d members, %d batches: %s", what, matches.size(),
        request.getMembersProcessed(), batches[0], matches.stream()
            .limit(EXCERPT)
            .map(DefaultMember::getName)
            .collect(Collectors.joining(", ")) + (matches.size() > EXCERPT ? ", …" : ""));
  }

  private static void printPaths(Tour tour, Outline open, String text) {
    List<MemberPath> paths = new ArrayList<>();
    tour.time("find with paths", () -> {
      check("find " + text, OutlineJni.findMemberQuery(
          open.handle(), text, TABLE, true, true, paths));
      return tour.plan().members().size();
    });
    tour.print("  %s alias has the word %s, the way up from each of %d matches", TABLE, text,
        paths.size());
    for (MemberPath path : paths.subList(0, Math.min(EXCERPT, paths.size()))) {
      tour.print("    %s", String.join(" ← ", path.getNames()));
    }
  }

  /** Exports a table, imports it into an outline that has lost it, and compares. */
  private static void moveTable(Tour tour) {
    tour.saveAs(OTHER);
    try {
      Path folder = Files.createTempDirectory("outline-demo");
      Path exported = folder.resolve("exported.alt");
      Path again = folder.resolve("again.alt");
      try {
        try (Outline open = tour.browse()) {
          tour.time("export an alias table", () -> {
            export(open, exported);
            return aliases(tour);
          });
        }
        importTable(tour, exported, again);
        byte[] content = Files.readAllBytes(exported);
        if (!Arrays.equals(content, Files.readAllBytes(again))) {
          throw new DifferenceException(
              "The alias table that was imported differs from the one that was exported");
        }
        tour.print("  Exported %,d French aliases to a file of %,d bytes, imported them into %s.%s,",
            aliases(tour), content.length, Tour.APPLICATION, OTHER);
        tour.print("  and exported them from there: the two files are the same, byte for byte");
      } finally {
        Files.deleteIfExists(exported);
        Files.deleteIfExists(again);
        Files.delete(folder);
      }
    } catch (IOException e) {
      throw new UncheckedIOException("A file of aliases cannot be used: " + e.getMessage(), e);
    }
  }

  private static void importTable(Tour tour, Path from, Path to) {
    try (Outline open = tour.edit(OTHER)) {
      check("delete the alias table " + TABLE,
          OutlineJni.deleteAliasTable(open.instance(), open.handle(), TABLE));
      StringBuffer table = new StringBuffer();
      tour.time("import an alias table", () -> {
        check("import the alias table " + TABLE, OutlineJni.importAliasTable(open.instance(),
            open.handle(), from.toString(), table, false, new StringBuffer()));
        return aliases(tour);
      });
      open.save();
    }
    try (Outline open = tour.browse(OTHER)) {
      export(open, to);
    }
  }

  private static void export(Outline open, Path file) {
    check("export the alias table " + TABLE, OutlineJni.exportAliasTable(
        open.instance(), open.handle(), TABLE, file.toString()));
  }

  private static int aliases(Tour tour) {
    int table = Arrays.asList(OutlinePlan.TABLES).indexOf(TABLE);
    return (int) tour.plan().members().stream()
        .filter(member -> member.aliases[table] != null)
        .count();
  }
}
