package com.olvane.kep.olvane.outline;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.Formula;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.defs.outline.MemberAttribute;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/** Members as texts with every value, once as the native methods give it and once as read. */
final class NativeValues {
  private final Outline outline;
  private final List<String> tables;

  NativeValues(Outline outline) {
    this.outline = outline;
    this.tables = outline.aliasTables().names();
  }

  /** A member and its descendants in pre-order, by the native methods. */
  List<String> subtree(DefaultMember member) {
    List<String> texts = new ArrayList<>();
    texts.add(text(member));
    List<DefaultMember> children = new ArrayList<>();
    check("list", OutlineJni.getChildrenEx(
        outline.access.login.instance, outline.access.handle, null, member.getHandle(), children));
    for (DefaultMember child : children) {
      texts.addAll(subtree(child));
    }
    return texts;
  }

  List<DefaultMember> dimensions() {
    List<DefaultMember> dimensions = new ArrayList<>();
    check("list", OutlineJni.getDimensionsEx(
        outline.access.login.instance, outline.access.handle, dimensions));
    return dimensions;
  }

  private static String orEmpty(String text) {
    return text == null ? "" : text;
  }

  String text(DefaultMember member) {
    InstanceHandle instance = outline.access.login.instance;
    OutlineHandle handle = outline.access.handle;
    int number = member.getHandle();
    Map<String, Object> values = new LinkedHashMap<>();
    values.put("handle", number);
    values.put("name", member.getName());
    values.put("dimension", member.getDimensionName() + " " + member.getDimensionHandle());
    values.put("place", member.getLevel() + " " + member.getGeneration());
    values.put("children", member.getChildCount());
    values.put("codes", member.getConsolidation() + " " + member.getCurrencyConversionType() + " "
        + member.getTimeBalanceOption() + " " + member.getTimeBalanceSkipOption() + " "
        + member.getShare() + " " + member.getDimensionStorageType() + " "
        + member.getDimensionCategory() + " " + member.getAttributeType());
    values.put("flags", member.isTwoPassCalculation() + " " + member.isExpenseMember() + " "
        + member.hasHybridDescendants() + " " + member.isHybridAnalysisEnabled() + " "
        + member.isAttributed());
    values.put("currency", orEmpty(member.getCurrencyMember()));
    values.put("comment", orEmpty(member.getComment()));
    Formula formula = new Formula();
    check("formula", OutlineJni.getMemberFormula(instance, handle, null, number, formula));
    values.put("formula", orEmpty(formula.getFormula()));
    List<MemberAlias> aliases = new ArrayList<>();
    check("aliases", OutlineJni.getMemberAliases(instance, handle, number, aliases));
    List<String> udas = new ArrayList<>();
    for (String table : tables) {
      String alias = "";
      for (MemberAlias found : aliases) {
        alias = found.getTableName().equals(table) ? found.getAliasName() : alias;
      }
      values.put("alias " + table, orEmpty(alias));
    }
    check("udas", OutlineJni.getMemberUDAS(instance, handle, null, number, udas));
    values.put("udas", udas);
    List<MemberAttribute> attributes = new ArrayList<>();
    check("attributes", OutlineJni.getMemberAttributes(instance, handle, number, attributes));
    List<String> texts = new ArrayList<>();
    for (MemberAttribute attribute : attributes) {
      texts.add(attribute.getDimension() + ": " + attribute.getMemberName());
    }
    values.put("attributes", texts);
    return values.toString();
  }

  /** The details that a member must have been read with for {@link #text(Member)}. */
  Details details() {
    return Details.NONE.formula().udas().attributes().aliases(tables.toArray(new String[0]));
  }

  String text(Member member) {
    Map<String, Object> values = new LinkedHashMap<>();
    values.put("handle", member.handle());
    values.put("name", member.name());
    values.put("dimension", member.dimension() + " " + member.dimensionHandle());
    values.put("place", member.level() + " " + member.generation());
    values.put("children", member.childCount());
    values.put("codes", member.consolidationCode() + " " + member.conversionCode() + " "
        + member.timeBalanceCode() + " " + member.timeBalanceSkipCode() + " "
        + member.shareCode() + " " + member.storageTypeCode() + " "
        + member.categoryCode() + " " + member.attributeTypeCode());
    values.put("flags", member.isTwoPass() + " " + member.isExpense() + " "
        + member.hasHybridDescendants() + " " + member.isHybridAnalysisEnabled() + " "
        + member.isAttributed());
    values.put("currency", member.currencyMember());
    values.put("comment", member.comment());
    values.put("formula", member.formula());
    for (String table : tables) {
      values.put("alias " + table, member.alias(table));
    }
    values.put("udas", member.udas());
    List<String> texts = new ArrayList<>();
    for (Attribute attribute : member.attributes()) {
      texts.add(attribute.toString());
    }
    values.put("attributes", texts);
    return values.toString();
  }

  List<String> texts(List<Member> members) {
    List<String> texts = new ArrayList<>();
    for (Member member : members) {
      texts.add(text(member));
    }
    return Collections.unmodifiableList(texts);
  }
}
