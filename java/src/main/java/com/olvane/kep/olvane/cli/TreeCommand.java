package com.olvane.kep.olvane.cli;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.google.gson.stream.JsonWriter;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.IOException;
import java.io.PrintWriter;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.concurrent.Callable;
import picocli.CommandLine.Command;
import picocli.CommandLine.Mixin;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Option;
import picocli.CommandLine.ParameterException;
import picocli.CommandLine.Spec;

/** Shows the members of an outline as a tree. */
@Command(
    name = "tree",
    header = {
      "Show the members of an outline as a tree.",
      "",
      "Examples:",
      "  outline tree Demo World --depth 1",
      "  outline tree Demo World --member JP --aliases Japanese",
      "  outline tree Demo World --member Year --json",
      ""
    },
    mixinStandardHelpOptions = true)
final class TreeCommand implements Callable<Integer> {
  @Spec private CommandSpec spec;

  @Mixin private StoreOptions options;

  @Mixin private DatabaseArguments names;

  @Option(names = "--member", paramLabel = "NAME", description = "Begin with this member.")
  private String member;

  @Option(
      names = "--depth",
      paramLabel = "N",
      description = "Show N generations below the beginning (default: all).")
  private int depth = Integer.MAX_VALUE;

  @Option(
      names = "--aliases",
      paramLabel = "TABLE",
      description = "Show the aliases of this alias table beside the names.")
  private String table;

  @Option(names = "--json", description = "Write JSON: name, alias and children of each member.")
  private boolean json;

  @Override
  public Integer call() throws IOException {
    if (depth < 0) {
      throw new ParameterException(spec.commandLine(), "--depth must not be negative");
    }
    PrintWriter out = spec.commandLine().getOut();
    try (StandinSession session = options.openExisting();
        OpenOutline open = OpenOutline.query(session, names.application, names.database)) {
      List<String> roots = new ArrayList<>();
      if (member == null) {
        check("list the dimensions", OutlineJni.getDimensions(open.handle(), roots));
      } else if (OutlineJni.findMember(open.handle(), member)) {
        roots.add(member);
      } else {
        throw new IllegalArgumentException(
            "There is no member " + member + " in " + names.application + "." + names.database
                + ". Give its name, not an alias; the tree without --member lists all names");
      }
      if (json) {
        writeJson(open, roots, out);
      } else {
        print(open, roots, 0, new TreePrinter(""), out);
      }
    }
    out.flush();
    return 0;
  }

  private void print(
      OpenOutline open, List<String> siblings, int level, TreePrinter tree, PrintWriter out) {
    List<String> aliases = aliases(open, siblings);
    for (int i = 0; i < siblings.size(); i++) {
      String alias = aliases.get(i);
      String text = alias == null ? siblings.get(i) : siblings.get(i) + "  " + alias;
      out.println(tree.line(level, i == siblings.size() - 1, text));
      if (level < depth) {
        print(open, children(open, siblings.get(i)), level + 1, tree, out);
      }
    }
  }

  private void writeJson(OpenOutline open, List<String> roots, PrintWriter out)
      throws IOException {
    JsonWriter writer = new JsonWriter(out);
    writer.setIndent("  ");
    write(open, roots, 0, writer);
    writer.flush();
    out.println();
  }

  private void write(OpenOutline open, List<String> siblings, int level, JsonWriter writer)
      throws IOException {
    List<String> aliases = aliases(open, siblings);
    writer.beginArray();
    for (int i = 0; i < siblings.size(); i++) {
      writer.beginObject().name("name").value(siblings.get(i));
      if (table != null) {
        writer.name("alias").value(aliases.get(i));
      }
      List<String> children =
          level < depth ? children(open, siblings.get(i)) : Collections.<String>emptyList();
      if (!children.isEmpty()) {
        writer.name("children");
        write(open, children, level + 1, writer);
      }
      writer.endObject();
    }
    writer.endArray();
  }

  private static List<String> children(OpenOutline open, String parent) {
    List<DefaultMember> children = new ArrayList<>();
    check("list the children of " + parent,
        OutlineJni.getChildrenEx(open.instance(), open.handle(), parent, 0, children));
    List<String> childNames = new ArrayList<>(children.size());
    children.forEach(child -> childNames.add(child.getName()));
    return childNames;
  }

  /** The aliases of members in the table asked for; null elements where there is none. */
  private List<String> aliases(OpenOutline open, List<String> members) {
    if (table == null) {
      return Collections.nCopies(members.size(), null);
    }
    List<MemberAlias> found = new ArrayList<>();
    check("read the alias table " + table,
        OutlineJni.getMemberAliasesForTable(
            open.instance(), open.handle(), table, members, found, false));
    List<String> aliases = new ArrayList<>();
    found.forEach(alias -> aliases.add(alias.getAliasName()));
    return aliases;
  }
}
