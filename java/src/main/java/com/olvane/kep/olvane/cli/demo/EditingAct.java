package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.MemberRequest;
import com.olvane.kep.olvane.defs.OutlineMemberProperties;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.Formula;
import com.olvane.kep.olvane.defs.outline.MemberAttribute;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import com.olvane.kep.olvane.defs.outline.OutlineInformation;
import com.olvane.kep.olvane.defs.outline.Share;
import com.olvane.kep.olvane.outline.CopyRun;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;
import java.util.stream.Collectors;

/** A session of edits on a draft of the outline, and what is found after reopening it. */
final class EditingAct implements Act {
  private static final String DATABASE = "Draft";
  private static final String TYPES = "Subdivision type";
  private static final int EXCERPT = 3;
  private static final String MARGIN = "Profit / (Sales + 1) * 100;";

  @Override
  public String title() {
    return "Editing a draft, " + Tour.APPLICATION + "." + DATABASE;
  }

  @Override
  public void play(Tour tour) {
    tour.saveAs(DATABASE);
    PlannedMember country = tour.plan().featured();
    String copyName = country.name + " draft";
    int copied;
    try (Outline open = tour.edit(DATABASE)) {
      copied = copy(tour, open, country.name, copyName);
      categorise(tour, open);
      changeMembers(open);
      changeSettings(open);
      open.save();
    }
    try (Outline open = tour.browse(DATABASE)) {
      printCopy(tour, open, country.name, copyName, copied);
      printTypes(tour, open, country);
      printMembers(tour, open);
      printSettings(tour, open);
    }
  }

  /** Copies a country with its subdivisions to the place behind it, and renames the copy. */
  private static int copy(Tour tour, Outline open, String source, String name) {
    Member country = open.find(source).get();
    CopyRun copy = open.copy(country, Place.behind(country));
    tour.time("copy a subtree", () -> {
      open.rename(copy.finish(), name);
      return copy.copied();
    });
    return copy.copied();
  }

  /** Makes the kinds of subdivisions an attribute dimension of Geography. */
  private static void categorise(Tour tour, Outline open) {
    InstanceHandle instance = open.instance();
    OutlineHandle outline = open.handle();
    Member types = open.create(Place.lastDimension(), new NewMember(TYPES));
    check("make an attribute dimension", OutlineJni.assignMemberDimensionCategory(
        instance, outline, types.handle(), new DimensionCategory(DimensionCategory.ATTRIBUTE), null));
    check("associate it with Geography", OutlineJni.assignAttributeDimension(
        instance, outline, open.find("Geography").get().handle(), types.handle()));

    List<MemberRequest> requests = tour.plan().members().stream()
        .map(member -> new MemberRequest(member.name))
        .collect(Collectors.toList());
    List<MemberRequestResult> members = new ArrayList<>();
    check("read the kinds of subdivisions",
        OutlineJni.getMemberUDASBlock(instance, outline, requests, members));
    // Kinds that differ in case only are one, as names are in this outline.
    Map<String, List<MemberRequestResult>> byKind = new TreeMap<>(String.CASE_INSENSITIVE_ORDER);
    for (MemberRequestResult member : members) {
      for (Object kind : member.getData()) {
        byKind.computeIfAbsent((String) kind, first -> new ArrayList<>()).add(member);
      }
    }
    tour.time("associate attribute members", () -> {
      int count = 0;
      for (Map.Entry<String, List<MemberRequestResult>> kind : byKind.entrySet()) {
        open.create(Place.lastBelow(types), new NewMember(kind.getKey()));
        for (MemberRequestResult member : kind.getValue()) {
          check("associate " + member.getName(), OutlineJni.assignAttributeMember(
              instance, outline, member.getHandle(), kind.getKey()));
          count++;
        }
      }
      return count;
    });
  }

  private static void changeMembers(Outline open) {
    InstanceHandle instance = open.instance();
    OutlineHandle outline = open.handle();
    int margin = open.find("Margin").get().handle();
    check("set the formula of Margin",
        OutlineJni.updateMemberFormula(instance, outline, margin, MARGIN));
    check("calculate Margin in two passes",
        OutlineJni.assignMemberTwoPass(instance, outline, margin, true));
    check("leave Margin out of the total", OutlineJni.assignMemberConsolidation(
        instance, outline, margin, new Consolidation(Consolidation.ATTRIBUTE)));
    check("make Costs an expense", OutlineJni.assignMemberVariance(
        instance, outline, open.find("Costs").get().handle(), true));
    check("make Measures label only", OutlineJni.assignMemberShare(
        instance, outline, open.find("Measures").get().handle(), new Share(Share.LABEL_ONLY)));
    check("sort the quarters", OutlineJni.sortChildren(
        instance, outline, open.find("Year").get().handle(), false));
  }

  private static void changeSettings(Outline open) {
    InstanceHandle instance = open.instance();
    OutlineHandle outline = open.handle();
    check("name TRUE", OutlineJni.updateBooleanNameTrue(instance, outline, "Yes"));
    check("name FALSE", OutlineJni.updateBooleanNameFalse(instance, outline, "No"));
    check("configure automatically", OutlineJni.updateAutoConfigure(instance, outline, true));
    check("copy an alias table",
        OutlineJni.copyAliasTable(instance, outline, "German", "Swiss German", false));
    check("rename an alias table",
        OutlineJni.renameAliasTable(instance, outline, "Japanese", "日本語"));
  }

  /** Compares the copy with its source, member by member. */
  private static void printCopy(
      Tour tour, Outline open, String source, String copy, int copied) {
    List<String> sources = children(open, source);
    List<String> copies = children(open, copy);
    if (!sources.equals(copies)) {
      throw new DifferenceException(
          "The children of " + copy + " are " + copies + " where " + sources + " were copied");
    }
    tour.print("  Copied %s to %s: %d members, the same %d children", source, copy, copied,
        copies.size());
  }

  private static List<String> children(Outline open, String parent) {
    return open.children(open.find(parent).get(), Details.NONE)
        .map(Member::name).collect(Collectors.toList());
  }

  private static void printTypes(Tour tour, Outline open, PlannedMember country) {
    tour.print("  Attribute dimension %s of Geography: %d members", TYPES,
        open.find(TYPES).get().childCount());
    for (PlannedMember child
        : country.children.subList(0, Math.min(EXCERPT, country.children.size()))) {
      List<MemberAttribute> attributes = new ArrayList<>();
      check("read the attributes of " + child.name, OutlineJni.getMemberAttributes(
          open.instance(), open.handle(), open.find(child.name).get().handle(), attributes));
      for (MemberAttribute attribute : attributes) {
        tour.print("    %-6s %-28s %s = %s", child.name,
            child.aliases[0] == null ? "" : child.aliases[0],
            attribute.getDimension(), attribute.getMemberName());
      }
    }
  }

  private static void printMembers(Tour tour, Outline open) {
    Formula formula = new Formula();
    check("read the formula of Margin", OutlineJni.getMemberFormulaQuery(
        open.instance(), open.handle(), "Margin", formula));
    OutlineMemberProperties margin = properties(open, "Margin");
    OutlineMemberProperties costs = properties(open, "Costs");
    OutlineMemberProperties measures = properties(open, "Measures");
    tour.print("  Margin    %s  two passes: %s, consolidation code %d", formula.getFormula(),
        margin.isTwoPass() ? "yes" : "no", margin.getConsolidation());
    tour.print("  Costs     expense: %s", costs.isExpense() ? "yes" : "no");
    tour.print("  Measures  %s", new Share(measures.getShare()).meaning());
    List<String> quarters = new ArrayList<>();
    check("list the quarters", OutlineJni.getChildrenAliasFor(
        open.instance(), open.handle(), "Year", "Year", "Swiss German", quarters));
    tour.print("  Year      %s", String.join(" ", quarters));
  }

  private static OutlineMemberProperties properties(Outline open, String member) {
    OutlineMemberProperties properties = new OutlineMemberProperties();
    check("read " + member, OutlineJni.getMemberInfo(open.handle(), member, properties));
    return properties;
  }

  private static void printSettings(Tour tour, Outline open) {
    OutlineInformation information = new OutlineInformation();
    check("read the settings", OutlineJni.getOutlineInfo(open.handle(), information));
    AttributeSettings attributes = new AttributeSettings();
    check("read the attribute settings",
        OutlineJni.getAttributeSpecsEx(open.instance(), open.handle(), attributes));
    tour.print("  Settings  auto-configure %s; TRUE is %s, FALSE is %s",
        information.isAutoConfigure() ? "on" : "off", attributes.getTrueText(),
        attributes.getFalseText());
    tour.print("  Tables    %s", String.join(", ", information.getAliasTables()));
  }
}
