package com.olvane.kep.olvane.cli;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.google.gson.GsonBuilder;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.AliasTable;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.OutlineSettings;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.PrintWriter;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.Callable;
import java.util.stream.Collectors;
import picocli.CommandLine.Command;
import picocli.CommandLine.Mixin;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Option;
import picocli.CommandLine.Spec;

/** Shows the settings, alias tables and dimensions of an outline. */
@Command(
    name = "info",
    header = {
      "Show the settings, alias tables and dimensions of an outline.",
      "",
      "Examples:",
      "  outline info Demo World",
      "  outline info Demo World --json",
      ""
    },
    mixinStandardHelpOptions = true)
final class InfoCommand implements Callable<Integer> {
  @Spec private CommandSpec spec;

  @Mixin private StoreOptions options;

  @Mixin private DatabaseArguments names;

  @Option(names = "--json", description = "Write JSON.")
  private boolean json;

  @Override
  public Integer call() {
    OutlineSettings settings = new OutlineSettings();
    List<DefaultMember> dimensions = new ArrayList<>();
    try (StandinSession session = options.openExisting();
        OpenOutline open = OpenOutline.query(session, names.application, names.database)) {
      check("read the settings",
          OutlineJni.getSettings(open.instance(), open.handle(), settings));
      check("list the dimensions",
          OutlineJni.getDimensionsEx(open.instance(), open.handle(), dimensions));
    }
    PrintWriter out = spec.commandLine().getOut();
    if (json) {
      new GsonBuilder().setPrettyPrinting().disableHtmlEscaping().create()
          .toJson(asMap(settings, dimensions), out);
      out.println();
    } else {
      print(out, settings, dimensions);
    }
    out.flush();
    return 0;
  }

  private Map<String, Object> asMap(OutlineSettings settings, List<DefaultMember> dimensions) {
    Map<String, Object> map = new LinkedHashMap<>();
    map.put("application", names.application);
    map.put("database", names.database);
    map.put("caseSensitive", settings.isCaseSensitive());
    map.put("autoConfigure", settings.isAutoConfigure());
    map.put("provideWarnings", settings.isProvideWarnings());
    map.put("outlineType", settings.getOutlineType().getValue());
    map.put("aliasTables", settings.getAliasTables().stream()
        .map(AliasTable::getName)
        .collect(Collectors.toList()));
    List<Object> list = new ArrayList<>();
    for (DefaultMember dimension : dimensions) {
      Map<String, Object> entry = new LinkedHashMap<>();
      entry.put("name", dimension.getName());
      entry.put("category", dimension.getDimensionCategory());
      entry.put("children", dimension.getChildCount());
      entry.put("levels", dimension.getLevel() + 1);
      list.add(entry);
    }
    map.put("dimensions", list);
    return map;
  }

  private void print(PrintWriter out, OutlineSettings settings, List<DefaultMember> dimensions) {
    out.println("Outline of " + names.application + "." + names.database);
    out.println("  case-sensitive names  " + yes(settings.isCaseSensitive()));
    out.println("  auto-configure        " + yes(settings.isAutoConfigure()));
    out.println("  warnings              " + yes(settings.isProvideWarnings()));
    out.println("  alias tables          " + settings.getAliasTables().stream()
        .map(AliasTable::getName)
        .collect(Collectors.joining(", ")));
    out.println("  dimensions            " + (dimensions.isEmpty() ? "none" : ""));
    for (DefaultMember dimension : dimensions) {
      DimensionCategory category = new DimensionCategory(dimension.getDimensionCategory());
      out.printf("    %-20s %,6d children, %d levels%s%n", dimension.getName(),
          dimension.getChildCount(), dimension.getLevel() + 1,
          category.getValue() == DimensionCategory.NONE ? "" : ", " + category.meaning());
    }
  }

  private static String yes(boolean value) {
    return value ? "yes" : "no";
  }
}
