package com.olvane.kep.olvane.api.outline;

/**
 * A search of an outline in batches: what to look for, how much per call, and how far it has
 * come. Each call of {@code findRequest} goes on after {@link #getLastHandle}; the search is over
 * when that is 0 again or the total limit is reached.
 */
public final class FindRequest {
  /** Scope of one dimension, named by the dimension name. */
  public static final short SCOPE_DIMENSION = 1;

  /** Aliases of every alias table are searched. */
  public static final short ALIASES_ALL_TABLES = 1;

  /** Aliases of one alias table are searched. */
  public static final short ALIASES_ONE_TABLE = 2;

  private short dimensionScope;
  private short aliasTableUsage;
  private boolean matchWordsOnly;
  private boolean matchCaseOnly;
  private boolean searchMemberNames = true;
  private boolean searchFormulas;
  private boolean searchUDAS;
  private int matchesFound;
  private int membersProcessed;
  private String text;
  private String dimensionName;
  private String aliasTable;
  private int maximumMatchesPerBatch = 100;
  private int maximumMatchesTotal;
  private int maximumMembersPerBatch = 10000;
  private int lastHandle;

  /** Creates a search of all member names of the outline. */
  public FindRequest() {}

  /** {@return the scope: {@link #SCOPE_DIMENSION}, or any other value for the whole outline} */
  public short getDimensionScope() {
    return dimensionScope;
  }

  /**
   * Sets the scope: {@link #SCOPE_DIMENSION}, or any other value for the whole outline.
   *
   * @param dimensionScope the scope
   */
  public void setDimensionScope(short dimensionScope) {
    this.dimensionScope = dimensionScope;
  }

  /**
   * {@return which aliases are searched: {@link #ALIASES_ALL_TABLES}, {@link #ALIASES_ONE_TABLE},
   * or any other value for none}
   */
  public short getAliasTableUsage() {
    return aliasTableUsage;
  }

  /**
   * Sets which aliases are searched: {@link #ALIASES_ALL_TABLES}, {@link #ALIASES_ONE_TABLE}, or
   * any other value for none.
   *
   * @param aliasTableUsage the alias usage
   */
  public void setAliasTableUsage(short aliasTableUsage) {
    this.aliasTableUsage = aliasTableUsage;
  }

  /** {@return whether only whole words match} */
  public boolean getMatchWordsOnly() {
    return matchWordsOnly;
  }

  /**
   * Sets whether only whole words match.
   *
   * @param matchWordsOnly true if so
   */
  public void setMatchWordsOnly(boolean matchWordsOnly) {
    this.matchWordsOnly = matchWordsOnly;
  }

  /** {@return whether case must match} */
  public boolean getMatchCaseOnly() {
    return matchCaseOnly;
  }

  /**
   * Sets whether case must match.
   *
   * @param matchCaseOnly true if so
   */
  public void setMatchCaseOnly(boolean matchCaseOnly) {
    this.matchCaseOnly = matchCaseOnly;
  }

  /** {@return whether member names are searched} */
  public boolean getSearchMemberNames() {
    return searchMemberNames;
  }

  /**
   * Sets whether member names are searched.
   *
   * @param searchMemberNames true if so
   */
  public void setSearchMemberNames(boolean searchMemberNames) {
    this.searchMemberNames = searchMemberNames;
  }

  /** {@return whether formulas are searched} */
  public boolean getSearchFormulas() {
    return searchFormulas;
  }

  /**
   * Sets whether formulas are searched.
   *
   * @param searchFormulas true if so
   */
  public void setSearchFormulas(boolean searchFormulas) {
    this.searchFormulas = searchFormulas;
  }

  /** {@return whether user-defined attributes are searched} */
  public boolean getSearchUDAS() {
    return searchUDAS;
  }

  /**
   * Sets whether user-defined attributes are searched.
   *
   * @param searchUDAS true if so
   */
  public void setSearchUDAS(boolean searchUDAS) {
    this.searchUDAS = searchUDAS;
  }

  /** {@return the number of matches of all batches so far} */
  public int getMatchesFound() {
    return matchesFound;
  }

  /**
   * Sets the number of matches of all batches so far.
   *
   * @param matchesFound the number of matches of all batches so far
   */
  public void setMatchesFound(int matchesFound) {
    this.matchesFound = matchesFound;
  }

  /** {@return the number of members visited by all batches so far} */
  public int getMembersProcessed() {
    return membersProcessed;
  }

  /**
   * Sets the number of members visited by all batches so far.
   *
   * @param membersProcessed the number of members visited by all batches so far
   */
  public void setMembersProcessed(int membersProcessed) {
    this.membersProcessed = membersProcessed;
  }

  /** {@return the search text; an empty one matches nothing} */
  public String getText() {
    return text;
  }

  /**
   * Sets the search text.
   *
   * @param text the search text
   */
  public void setText(String text) {
    this.text = text;
  }

  /** {@return the dimension to search, for {@link #SCOPE_DIMENSION}} */
  public String getDimensionName() {
    return dimensionName;
  }

  /**
   * Sets the dimension to search, for {@link #SCOPE_DIMENSION}.
   *
   * @param dimensionName the dimension
   */
  public void setDimensionName(String dimensionName) {
    this.dimensionName = dimensionName;
  }

  /** {@return the alias table to search, for {@link #ALIASES_ONE_TABLE}} */
  public String getAliasTable() {
    return aliasTable;
  }

  /**
   * Sets the alias table to search, for {@link #ALIASES_ONE_TABLE}.
   *
   * @param aliasTable the alias table
   */
  public void setAliasTable(String aliasTable) {
    this.aliasTable = aliasTable;
  }

  /** {@return the number of matches that ends a batch} */
  public int getMaximumMatchesPerBatch() {
    return maximumMatchesPerBatch;
  }

  /**
   * Sets the number of matches that ends a batch.
   *
   * @param maximumMatchesPerBatch the number of matches that ends a batch
   */
  public void setMaximumMatchesPerBatch(int maximumMatchesPerBatch) {
    this.maximumMatchesPerBatch = maximumMatchesPerBatch;
  }

  /** {@return the number of matches that ends the search, or 0 for no limit} */
  public int getMaximumMatchesTotal() {
    return maximumMatchesTotal;
  }

  /**
   * Sets the number of matches that ends the search, or 0 for no limit.
   *
   * @param maximumMatchesTotal the limit
   */
  public void setMaximumMatchesTotal(int maximumMatchesTotal) {
    this.maximumMatchesTotal = maximumMatchesTotal;
  }

  /** {@return the number of visited members that ends a batch} */
  public int getMaximumMembersPerBatch() {
    return maximumMembersPerBatch;
  }

  /**
   * Sets the number of visited members that ends a batch.
   *
   * @param maximumMembersPerBatch the number of visited members that ends a batch
   */
  public void setMaximumMembersPerBatch(int maximumMembersPerBatch) {
    this.maximumMembersPerBatch = maximumMembersPerBatch;
  }

  /**
   * {@return the member at which the last batch stopped; 0 before the first batch and when the
   * outline is exhausted}
   */
  public int getLastHandle() {
    return lastHandle;
  }

  /**
   * Sets the member at which the last batch stopped.
   *
   * @param lastHandle the handle
   */
  public void setLastHandle(int lastHandle) {
    this.lastHandle = lastHandle;
  }

  @Override
  public String toString() {
    return "FindRequest[text=" + text + ", matchesFound=" + matchesFound
        + ", membersProcessed=" + membersProcessed + "]";
  }
}
