package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.cli.TreePrinter;
import com.olvane.kep.olvane.defs.OutlineMemberProperties;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Comparator;
import java.util.List;
import java.util.stream.Collectors;

/** Third act: what an administrator looks at in the outline. */
final class BrowseAct implements Act {
  private static final int EXCERPT = 6;

  @Override
  public String title() {
    return "Looking around";
  }

  @Override
  public void play(Tour tour) {
    try (Outline open = tour.browse()) {
      printDimensions(tour, open);
      printCountry(tour, open);
      printAncestors(tour, open);
      printLargest(tour, open);
    }
  }

  private static void printDimensions(Tour tour, Outline open) {
    List<DefaultMember> dimensions = new ArrayList<>();
    check("list the dimensions",
        OutlineJni.getDimensionsEx(open.instance(), open.handle(), dimensions));
    tour.print("  Dimensions");
    for (DefaultMember dimension : dimensions) {
      tour.print("    %-12s %4d children, %d levels  %s", dimension.getName(),
          dimension.getChildCount(), dimension.getLevel() + 1,
          String.join(" · ", aliases(open, dimension.getHandle())));
    }
  }

  /** Shows a country with its first subdivisions, in all languages. */
  private static void printCountry(Tour tour, Outline open) {
    PlannedMember country = tour.plan().featured();
    List<OutlineMemberProperties> children = new ArrayList<>();
    check("list the children of " + country.name,
        OutlineJni.getChildrenWithProperties(open.instance(), open.handle(), "Geography",
            country.name, 0, EXCERPT, children));
    long more = open.find(country.name).get().childCount() - children.size();

    tour.print("");
    tour.print("  Geography, an excerpt: member, attribute, aliases in %s",
        String.join(", ", OutlinePlan.TABLES));
    List<PlannedMember> path = new ArrayList<>();
    for (PlannedMember member = country; member != null; member = member.parent) {
      path.add(0, member);
    }
    TreePrinter tree = new TreePrinter("    ");
    for (int depth = 0; depth < path.size(); depth++) {
      PlannedMember member = path.get(depth);
      String comment = member.comment == null ? "" : "  (" + member.comment + ")";
      tour.print("%s", tree.line(depth, true, label(open, member.name) + comment));
    }
    for (int i = 0; i < children.size(); i++) {
      boolean last = i == children.size() - 1 && more == 0;
      String attributes = String.join(", ", attributes(open, children.get(i).getName()));
      tour.print("%s", tree.line(path.size(), last,
          label(open, children.get(i).getName()) + "  [" + attributes + "]"));
    }
    if (more > 0) {
      tour.print("%s", tree.line(path.size(), true, "… and " + more + " more"));
    }
  }

  private static void printAncestors(Tour tour, Outline open) {
    PlannedMember deepest = tour.plan().members().stream()
        .max(Comparator.comparingInt(PlannedMember::depth))
        .get();
    List<DefaultMember> ancestors = new ArrayList<>();
    check("list the ancestors of " + deepest.name,
        OutlineJni.getMemberAncestors(
            open.instance(), open.handle(), deepest.name, 0, ancestors));
    tour.print("");
    tour.print("  Ancestors of %s", label(open, deepest.name));
    for (DefaultMember ancestor : ancestors) {
      tour.print("    %s", label(open, ancestor.getName()));
    }
  }

  private static void printLargest(Tour tour, Outline open) {
    tour.print("");
    tour.print("  Countries with most direct subdivisions");
    for (PlannedMember country : tour.plan().largestCountries(EXCERPT - 1)) {
      List<Long> count = new ArrayList<>();
      List<Short> level = new ArrayList<>();
      check("count the children of " + country.name,
          OutlineJni.getMemberChildCount(open.instance(), open.handle(), country.name, 0, count));
      check("read the level of " + country.name,
          OutlineJni.getMemberLevel(open.instance(), open.handle(), country.name, 0, level));
      tour.print("    %4d children, level %d  %s", count.get(0), level.get(0),
          label(open, country.name));
    }
  }

  private static String label(Outline open, String name) {
    List<MemberAlias> found = new ArrayList<>();
    OutlineJni.getMemberAliasesQuery(open.instance(), open.handle(), name, found);
    String aliases = String.join(" · ", texts(found));
    return aliases.isEmpty() ? name : name + "  " + aliases;
  }

  private static List<String> aliases(Outline open, int handle) {
    List<MemberAlias> found = new ArrayList<>();
    OutlineJni.getMemberAliases(open.instance(), open.handle(), handle, found);
    return texts(found);
  }

  /** The aliases that exist, each once: many names are the same in several languages. */
  private static List<String> texts(List<MemberAlias> aliases) {
    return aliases.stream()
        .map(MemberAlias::getAliasName)
        .filter(alias -> alias != null)
        .distinct()
        .collect(Collectors.toList());
  }

  private static List<String> attributes(Outline open, String name) {
    List<String> attributes = new ArrayList<>();
    check("read the attributes of " + name,
        OutlineJni.getMemberUDASQuery(open.instance(), open.handle(), name, attributes));
    return attributes;
  }
}
