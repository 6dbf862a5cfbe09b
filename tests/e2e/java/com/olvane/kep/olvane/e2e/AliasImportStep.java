package com.olvane.kep.olvane.e2e;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.IntStream;

/**
 * One step of an alias import, for a run in which the system fails or kills it: {@code make} writes an
 * outline without aliases and a file with one for each member, {@code import} imports the file and
 * writes the outline if that succeeded, {@code check} prints how many members have their alias.
 */
public final class AliasImportStep {
  /** As many as make the file longer than what one read takes. */
  private static final int MEMBERS = 500;

  private static final String TABLE = "Imported";

  private AliasImportStep() {}

  /**
   * Runs a step.
   *
   * @param arguments its name, the folder of the store and the alias file
   * @throws IOException if the alias file cannot be made
   */
  public static void main(String[] arguments) throws IOException {
    Path store = Paths.get(arguments[1]);
    Path file = Paths.get(arguments[2]);
    try (StandinSession session = StandinSession.open(store, "importer")) {
      if (arguments[0].equals("make")) {
        session.createDatabase(StoreRule.APPLICATION, StoreRule.DATABASE);
      }
      try (OpenOutline open =
          OpenOutline.edit(session, StoreRule.APPLICATION, StoreRule.DATABASE)) {
        System.out.println(run(arguments[0], open, file));
      }
    }
  }

  private static int run(String step, OpenOutline open, Path file) throws IOException {
    switch (step) {
      case "make":
        return make(open, file);
      case "import":
        int status = OutlineJni.importAliasTable(open.instance(), open.handle(), file.toString(),
            new StringBuffer(TABLE), true, new StringBuffer());
        if (status == 0) {
          open.write();
        }
        return status;
      default:
        return count(open);
    }
  }

  private static int make(OpenOutline open, Path file) throws IOException {
    StringBuilder lines = new StringBuilder("$ALT_NAME  '" + TABLE + "'\n");
    int dimension = StoreRule.create(open, 0, 0, "Dimension");
    for (int i = 0; i < MEMBERS; ++i) {
      StoreRule.create(open, dimension, 0, name(i));
      lines.append(name(i)).append("   \"Alias of ").append(name(i)).append("\"\n");
    }
    open.write();
    Files.write(file, lines.append("$END\n").toString().getBytes(StandardCharsets.UTF_8));
    return MEMBERS;
  }

  private static int count(OpenOutline open) {
    List<String> names =
        IntStream.range(0, MEMBERS).mapToObj(AliasImportStep::name).collect(Collectors.toList());
    List<MemberAlias> aliases = new ArrayList<>();
    OutlineJni.getMemberAliasesForTable(
        open.instance(), open.handle(), TABLE, names, aliases, false);
    return (int) IntStream.range(0, aliases.size())
        .filter(i -> ("Alias of " + name(i)).equals(aliases.get(i).getAliasName()))
        .count();
  }

  private static String name(int index) {
    return "Member " + index;
  }
}
