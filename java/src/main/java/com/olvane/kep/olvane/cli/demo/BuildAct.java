package com.olvane.kep.olvane.cli.demo;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.List;

/** First act: builds the planned outline, member by member, and writes it to its database. */
final class BuildAct implements Act {
  @Override
  public String title() {
    return "Building the outline of " + Tour.APPLICATION + "." + Tour.DATABASE;
  }

  @Override
  public void play(Tour tour) {
    tour.create(Tour.DATABASE);
    OutlinePlan plan = tour.plan();
    try (Outline open = tour.edit(Tour.DATABASE)) {
      InstanceHandle instance = open.instance();
      OutlineHandle outline = open.handle();
      clear(tour, open);
      for (int table = 1; table < OutlinePlan.TABLES.length; table++) {
        String name = OutlinePlan.TABLES[table];
        check("create the alias table " + name,
            OutlineJni.createAliasTable(instance, outline, name));
      }
      tour.time("create members", () -> createMembers(plan, instance, outline));
      tour.time("assign aliases", () -> assignAliases(plan, instance, outline));
      tour.time("set attributes, comments, formulas", () -> assignDetails(plan, instance, outline));
      tour.time("write the outline", () -> {
        open.save();
        return plan.members().size();
      });
    }
    tour.print("  %,d members in %d dimensions, %d alias tables",
        plan.members().size(), plan.dimensions().size(), OutlinePlan.TABLES.length);
  }

  /** Empties the outline that an earlier run has left. */
  private static void clear(Tour tour, Outline open) {
    if (open.dimensions().isEmpty()) {
      return;
    }
    tour.say("The outline is there from an earlier run; emptying it first.");
    open.dimensions().forEach(open::delete);
    List<String> tables = open.aliasTables().names();
    tables.subList(1, tables.size()).forEach(open.aliasTables()::delete);
  }

  private static int createMembers(
      OutlinePlan plan, InstanceHandle instance, OutlineHandle outline) {
    PlannedMember previous = null;
    for (PlannedMember dimension : plan.dimensions()) {
      create(dimension, previous, instance, outline);
      previous = dimension;
    }
    for (PlannedMember parent : plan.members()) {
      previous = null;
      for (PlannedMember child : parent.children) {
        create(child, previous, instance, outline);
        previous = child;
      }
    }
    for (PlannedMember dimension : plan.dimensions()) {
      if (dimension.category != DimensionCategory.NONE) {
        check("set the category of " + dimension.name,
            OutlineJni.assignMemberDimensionCategory(instance, outline, dimension.handle,
                new DimensionCategory(dimension.category), null));
      }
    }
    return plan.members().size();
  }

  private static void create(
      PlannedMember member, PlannedMember previous, InstanceHandle instance,
      OutlineHandle outline) {
    List<DefaultMember> created = new ArrayList<>(1);
    check("create the member " + member.name,
        OutlineJni.createMember(instance, outline,
            member.parent == null ? 0 : member.parent.handle,
            previous == null ? 0 : previous.handle,
            member.name, created));
    member.handle = created.get(0).getHandle();
  }

  private static int assignAliases(
      OutlinePlan plan, InstanceHandle instance, OutlineHandle outline) {
    int count = 0;
    for (PlannedMember member : plan.members()) {
      for (int table = 0; table < OutlinePlan.TABLES.length; table++) {
        if (member.aliases[table] != null) {
          check("assign the alias " + member.aliases[table],
              OutlineJni.assignMemberAlias(instance, outline, member.handle,
                  OutlinePlan.TABLES[table], member.aliases[table]));
          count++;
        }
      }
    }
    return count;
  }

  private static int assignDetails(
      OutlinePlan plan, InstanceHandle instance, OutlineHandle outline) {
    int count = 0;
    Consolidation consolidation = new Consolidation();
    for (PlannedMember member : plan.members()) {
      if (member.attribute != null) {
        check("set the attribute " + member.attribute,
            OutlineJni.setMemberUDA(instance, outline, member.handle, member.attribute));
        count++;
      }
      if (member.comment != null) {
        check("set the comment of " + member.name,
            OutlineJni.assignMemberComment(instance, outline, member.handle, member.comment));
        count++;
      }
      if (member.formula != null) {
        check("set the formula of " + member.name,
            OutlineJni.updateMemberFormula(instance, outline, member.handle, member.formula));
        count++;
      }
      if (member.consolidation != Consolidation.DEFAULT) {
        consolidation.setValue(member.consolidation);
        check("set the consolidation of " + member.name,
            OutlineJni.assignMemberConsolidation(
                instance, outline, member.handle, consolidation));
        count++;
      }
    }
    return count;
  }
}
