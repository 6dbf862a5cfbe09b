package com.olvane.kep.olvane.cli.demo;

import com.olvane.kep.olvane.cli.StoreOptions;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.Ledger;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.IOException;
import java.io.PrintWriter;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.concurrent.Callable;
import picocli.CommandLine.Command;
import picocli.CommandLine.Mixin;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Option;
import picocli.CommandLine.ParameterException;
import picocli.CommandLine.Spec;

/** Builds an outline from the countries of the world and shows what can be done with it. */
@Command(
    name = "outline-demo",
    header = {
      "Build an outline of the countries of the world, and look around in it.",
      "",
      "Examples:",
      "  outline-demo",
      "  outline-demo --store world --countries 20",
      "  outline-demo --act search",
      ""
    },
    mixinStandardHelpOptions = true)
public final class DemoCommand implements Callable<Integer> {
  @Spec private CommandSpec spec;

  @Mixin private StoreOptions options;

  @Option(
      names = "--countries",
      paramLabel = "N",
      description = "Take only the first N countries by name (default: all).")
  private int countries = Integer.MAX_VALUE;

  @Option(
      names = "--act",
      paramLabel = "NAME",
      description = "Play this act alone, after building: compare, browse, reading, editing, life"
          + " or search (default: all).")
  private Chapter only;

  @Option(
      names = "--data",
      paramLabel = "DIR",
      description = "Folder that holds iso-codes/json and locale (default: ${DEFAULT-VALUE}).")
  private Path data = Paths.get("/usr/share");

  /** Creates the command; its options are set from the command line. */
  public DemoCommand() {}

  @Override
  public Integer call() throws IOException {
    if (countries < 1) {
      throw new ParameterException(spec.commandLine(), "--countries must be at least 1");
    }
    PrintWriter page = spec.commandLine().getOut();
    PrintWriter progress = spec.commandLine().getErr();
    progress.println("Reading the codes of countries, subdivisions and currencies ...");
    progress.flush();
    OutlinePlan plan = new OutlinePlan(IsoCodes.read(data), countries);
    try (Store store = options.open()) {
      Tour tour = new Tour(store, plan, page, progress);
      for (Chapter chapter : Chapter.values()) {
        if (only != null && chapter != only && chapter != Chapter.BUILD) {
          continue;
        }
        Act act = chapter.act();
        tour.say(act.title() + " ...");
        tour.print("");
        tour.print("%s", act.title());
        act.play(tour);
        page.flush();
      }
      tour.print("");
      tour.print("How long it took");
      tour.printTimes();
      Ledger memory = StandinSession.memory();
      tour.print("");
      tour.print("Memory of the API: %s", memory);
      printNextSteps(tour);
      page.flush();
    }
    return 0;
  }

  /** A launcher names the outline command in the property {@code outline.command}. */
  private void printNextSteps(Tour tour) {
    String command = System.getProperty("outline.command", "outline");
    String database =
        " --store " + options.address() + " " + Tour.APPLICATION + " " + Tour.DATABASE;
    String country = tour.plan().featured().name;
    tour.print("");
    tour.print("What to try next");
    tour.print("  %s info%s", command, database);
    tour.print("  %s tree%s --depth 1 --aliases French", command, database);
    tour.print("  %s tree%s --member %s --aliases Japanese", command, database, country);
    tour.print("  %s tree%s --member Year --json", command, database);
  }
}
