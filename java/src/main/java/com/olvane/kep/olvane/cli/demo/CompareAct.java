package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.cli.OpenOutline;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Objects;

/** Second act: reads everything back in browsing mode and compares it with the plan. */
final class CompareAct implements Act {
  @Override
  public String title() {
    return "Reading it all back";
  }

  @Override
  public void play(Tour tour) {
    OutlinePlan plan = tour.plan();
    try (OpenOutline open = tour.browse()) {
      List<DefaultMember> members = new ArrayList<>();
      tour.time("read members", () -> {
        readMembers(open, members);
        return members.size();
      });
      compareMembers(plan.members(), members);
      tour.time("read aliases", () -> compareAliases(plan.members(), open));
      tour.time("read attributes", () -> compareAttributes(plan.members(), members, open));
      tour.time("read formulas", () -> compareFormulas(plan.members(), members, open));
    }
    tour.print(
        "  all members, properties, aliases, attributes and formulas are what was written");
  }

  private static void readMembers(OpenOutline open, List<DefaultMember> members) {
    List<DefaultMember> dimensions = new ArrayList<>();
    check("list the dimensions",
        OutlineJni.getDimensionsEx(open.instance(), open.handle(), dimensions));
    readSubtrees(open, dimensions, members);
  }

  private static void readSubtrees(
      OpenOutline open, List<DefaultMember> siblings, List<DefaultMember> members) {
    for (DefaultMember member : siblings) {
      members.add(member);
      if (member.getChildCount() > 0) {
        List<DefaultMember> children = new ArrayList<>();
        check("list the children of " + member.getName(),
            OutlineJni.getChildrenEx(
                open.instance(), open.handle(), "", member.getHandle(), children));
        readSubtrees(open, children, members);
      }
    }
  }

  private static void compareMembers(List<PlannedMember> planned, List<DefaultMember> found) {
    expect("number of members", "the outline", planned.size(), found.size());
    for (int i = 0; i < planned.size(); i++) {
      PlannedMember plan = planned.get(i);
      DefaultMember member = found.get(i);
      expect("name", "member " + i, plan.name, member.getName());
      expect("number of children", plan.name, (long) plan.children.size(), member.getChildCount());
      expect("comment", plan.name, plan.comment, member.getComment());
      expect("category", plan.name, plan.category, member.getDimensionCategory());
      expect("consolidation", plan.name, plan.consolidation, member.getConsolidation());
      if (!member.getHeldExceptions().isEmpty()) {
        throw new DifferenceException(member.getHeldExceptions().get(0).getMessage());
      }
    }
  }

  private static int compareAliases(List<PlannedMember> planned, OpenOutline open) {
    List<String> names = new ArrayList<>();
    planned.forEach(plan -> names.add(plan.name));
    int count = 0;
    for (int table = 0; table < OutlinePlan.TABLES.length; table++) {
      List<MemberAlias> aliases = new ArrayList<>();
      String name = OutlinePlan.TABLES[table];
      check("read the alias table " + name,
          OutlineJni.getMemberAliasesForTable(
              open.instance(), open.handle(), name, names, aliases, false));
      expect("number of members in the table", name, planned.size(), aliases.size());
      for (int i = 0; i < planned.size(); i++) {
        expect(name + " alias", names.get(i), planned.get(i).aliases[table],
            aliases.get(i).getAliasName());
      }
      count += aliases.size();
    }
    return count;
  }

  private static int compareAttributes(
      List<PlannedMember> planned, List<DefaultMember> members, OpenOutline open) {
    List<MemberRequestResult> results = new ArrayList<>();
    check("read the attributes",
        OutlineJni.getMemberUDASBlock(open.instance(), open.handle(), members, results));
    expect("number of members with attributes read", "the outline", planned.size(),
        results.size());
    for (int i = 0; i < planned.size(); i++) {
      PlannedMember plan = planned.get(i);
      expect("attributes", plan.name, listOf(plan.attribute), results.get(i).getData());
    }
    return results.size();
  }

  private static int compareFormulas(
      List<PlannedMember> planned, List<DefaultMember> members, OpenOutline open) {
    List<MemberRequestResult> results = new ArrayList<>();
    check("read the formulas",
        OutlineJni.getMemberFormulaBlock(open.instance(), open.handle(), members, results));
    expect("number of members with formulas read", "the outline", planned.size(), results.size());
    for (int i = 0; i < planned.size(); i++) {
      PlannedMember plan = planned.get(i);
      expect("formula", plan.name, listOf(plan.formula), results.get(i).getData());
    }
    return results.size();
  }

  private static List<String> listOf(String textOrNull) {
    return textOrNull == null
        ? Collections.<String>emptyList()
        : Collections.singletonList(textOrNull);
  }

  private static void expect(String what, String of, Object wanted, Object found) {
    if (!Objects.equals(wanted, found)) {
      throw new DifferenceException(
          "The outline that was read back differs: " + what + " of " + of + " is " + found
              + " where " + wanted + " was written");
    }
  }
}
