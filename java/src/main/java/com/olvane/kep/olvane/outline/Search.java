package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.outline.MemberPath;
import java.util.List;

/**
 * What to search an outline for. A member is found when the text occurs in one of the places that
 * are searched; names are searched from the start. The methods change this object and return it.
 */
public final class Search {
  private final String text;
  private String dimension;
  private boolean names = true;
  private boolean formulas;
  private boolean udas;
  private boolean matchCase;
  private boolean wholeWords;
  private boolean allTables;
  private String table;
  private int membersPerBatch = 10000;

  /**
   * Searches all dimensions for a text in names.
   *
   * @param text the text, not empty
   */
  public Search(String text) {
    this.text = Texts.given("", "search text", text, Integer.MAX_VALUE);
  }

  /**
   * Searches one dimension only.
   *
   * @param name the name of the dimension
   * @return this
   */
  public Search inDimension(String name) {
    dimension = Texts.given("", "name of the dimension", name, Texts.NAME);
    return this;
  }

  /** {@return this, with names left out} */
  public Search notNames() {
    names = false;
    return this;
  }

  /** {@return this, with formulas} */
  public Search formulas() {
    formulas = true;
    return this;
  }

  /** {@return this, with user-defined attributes} */
  public Search udas() {
    udas = true;
    return this;
  }

  /** {@return this, with the aliases of all tables} */
  public Search aliases() {
    allTables = true;
    return this;
  }

  /**
   * Searches the aliases of one table.
   *
   * @param name the name of the alias table
   * @return this
   */
  public Search aliases(String name) {
    table = Texts.given("", "name of an alias table", name, Texts.ALIAS_TABLE);
    return this;
  }

  /** {@return this, with upper and lower case told apart} */
  public Search matchCase() {
    matchCase = true;
    return this;
  }

  /** {@return this, with whole words only} */
  public Search wholeWords() {
    wholeWords = true;
    return this;
  }

  /**
   * Sets how many members are looked at in one batch.
   *
   * @param members the number, at least 1
   * @return this
   */
  public Search membersPerBatch(int members) {
    if (members < 1) {
      throw new IllegalArgumentException("A batch has at least one member, not " + members);
    }
    membersPerBatch = members;
    return this;
  }

  /** Searches names and at most one table's aliases, all at once. */
  int paths(OutlineHandle outline, List<MemberPath> found) {
    if (dimension != null || formulas || udas || allTables || !names) {
      throw new IllegalArgumentException(
          "Paths can be told of members that are found by name or by the aliases of one table");
    }
    return OutlineJni.findMemberQuery(outline, text, table, matchCase, wholeWords, found);
  }

  FindRequest request() {
    FindRequest request = new FindRequest();
    request.setText(text);
    request.setSearchMemberNames(names);
    request.setSearchFormulas(formulas);
    request.setSearchUDAS(udas);
    request.setMatchCaseOnly(matchCase);
    request.setMatchWordsOnly(wholeWords);
    request.setMaximumMembersPerBatch(membersPerBatch);
    request.setMaximumMatchesPerBatch(membersPerBatch);
    if (dimension != null) {
      request.setDimensionScope(FindRequest.SCOPE_DIMENSION);
      request.setDimensionName(dimension);
    }
    if (allTables) {
      request.setAliasTableUsage(FindRequest.ALIASES_ALL_TABLES);
    } else if (table != null) {
      request.setAliasTableUsage(FindRequest.ALIASES_ONE_TABLE);
      request.setAliasTable(table);
    }
    return request;
  }
}
