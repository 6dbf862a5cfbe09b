package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.outline.MemberPath;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Consumer;

/**
 * What to search an outline for. A member is found when the text occurs in one of the places that
 * are searched; names are searched from the start. The methods change this object and return it.
 */
public final class Search {
  private final List<Consumer<FindRequest>> settings = new ArrayList<>();

  /**
   * Searches all dimensions for a text in names.
   *
   * @param text the text, not empty
   */
  public Search(String text) {
    Texts.given("", "search text", text, Integer.MAX_VALUE);
    with(request -> request.setText(text));
    membersPerBatch(10000);
  }

  private Search with(Consumer<FindRequest> setting) {
    settings.add(setting);
    return this;
  }

  /**
   * Searches one dimension only.
   *
   * @param name the name of the dimension
   * @return this
   */
  public Search inDimension(String name) {
    Texts.given("", "name of the dimension", name, Texts.NAME);
    return with(request -> {
      request.setDimensionScope(FindRequest.SCOPE_DIMENSION);
      request.setDimensionName(name);
    });
  }

  /** {@return this, with names left out} */
  public Search notNames() {
    return with(request -> request.setSearchMemberNames(false));
  }

  /** {@return this, with formulas} */
  public Search formulas() {
    return with(request -> request.setSearchFormulas(true));
  }

  /** {@return this, with user-defined attributes} */
  public Search udas() {
    return with(request -> request.setSearchUDAS(true));
  }

  /** {@return this, with the aliases of all tables} */
  public Search aliases() {
    return with(request -> request.setAliasTableUsage(FindRequest.ALIASES_ALL_TABLES));
  }

  /**
   * Searches the aliases of one table.
   *
   * @param name the name of the alias table
   * @return this
   */
  public Search aliases(String name) {
    Texts.aliasTable(name);
    return with(request -> {
      request.setAliasTableUsage(FindRequest.ALIASES_ONE_TABLE);
      request.setAliasTable(name);
    });
  }

  /** {@return this, with upper and lower case told apart} */
  public Search matchCase() {
    return with(request -> request.setMatchCaseOnly(true));
  }

  /** {@return this, with whole words only} */
  public Search wholeWords() {
    return with(request -> request.setMatchWordsOnly(true));
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
    return with(request -> {
      request.setMaximumMembersPerBatch(members);
      request.setMaximumMatchesPerBatch(members);
    });
  }

  /** Searches names and at most one table's aliases, all at once. */
  int paths(OutlineHandle outline, List<MemberPath> found) {
    FindRequest request = request();
    if (request.getDimensionName() != null || request.getSearchFormulas()
        || request.getSearchUDAS() || !request.getSearchMemberNames()
        || request.getAliasTableUsage() == FindRequest.ALIASES_ALL_TABLES) {
      throw new IllegalArgumentException(
          "Paths can be told of members that are found by name or by the aliases of one table");
    }
    return OutlineJni.findMemberQuery(outline, request.getText(), request.getAliasTable(),
        request.getMatchCaseOnly(), request.getMatchWordsOnly(), found);
  }

  FindRequest request() {
    FindRequest request = new FindRequest();
    settings.forEach(setting -> setting.accept(request));
    return request;
  }
}
