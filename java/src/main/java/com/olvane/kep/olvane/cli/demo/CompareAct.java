package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static java.util.stream.Collectors.toList;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.MemberRequest;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
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
    try (Outline open = tour.browse()) {
      List<Member> members = new ArrayList<>();
      tour.time("read members", () -> {
        for (Member dimension : open.dimensions()) {
          open.subtree(dimension, Details.NONE).forEach(members::add);
        }
        return members.size();
      });
      compareMembers(plan.members(), members);
      List<MemberRequest> requests =
          members.stream().map(member -> new MemberRequest(member.name())).collect(toList());
      tour.time("read aliases", () -> compareAliases(plan.members(), open));
      tour.time("read attributes", () -> compareAttributes(plan.members(), requests, open));
      tour.time("read formulas", () -> compareFormulas(plan.members(), requests, open));
    }
    tour.print(
        "  all members, properties, aliases, attributes and formulas are what was written");
  }

  private static void compareMembers(List<PlannedMember> planned, List<Member> found) {
    expect("number of members", "the outline", planned.size(), found.size());
    for (int i = 0; i < planned.size(); i++) {
      PlannedMember plan = planned.get(i);
      Member member = found.get(i);
      expect("name", "member " + i, plan.name, member.name());
      expect("number of children", plan.name, (long) plan.children.size(), member.childCount());
      expect("comment", plan.name, plan.comment == null ? "" : plan.comment, member.comment());
      expect("category", plan.name, plan.category, member.categoryCode());
      expect("consolidation", plan.name, plan.consolidation, member.consolidationCode());
    }
  }

  private static int compareAliases(List<PlannedMember> planned, Outline open) {
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
      List<PlannedMember> planned, List<MemberRequest> requests, Outline open) {
    List<MemberRequestResult> results = new ArrayList<>();
    check("read the attributes",
        OutlineJni.getMemberUDASBlock(open.instance(), open.handle(), requests, results));
    expect("number of members with attributes read", "the outline", planned.size(),
        results.size());
    for (int i = 0; i < planned.size(); i++) {
      PlannedMember plan = planned.get(i);
      expect("attributes", plan.name, listOf(plan.attribute), results.get(i).getData());
    }
    return results.size();
  }

  private static int compareFormulas(
      List<PlannedMember> planned, List<MemberRequest> requests, Outline open) {
    List<MemberRequestResult> results = new ArrayList<>();
    check("read the formulas",
        OutlineJni.getMemberFormulaBlock(open.instance(), open.handle(), requests, results));
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
