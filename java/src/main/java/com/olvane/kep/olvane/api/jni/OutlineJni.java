package com.olvane.kep.olvane.api.jni;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.IntHolder;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.outline.CopyRequest;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.api.outline.GenerationOrLevel;
import com.olvane.kep.olvane.api.outline.SavedFile;
import com.olvane.kep.olvane.defs.DefinedGeneration;
import com.olvane.kep.olvane.defs.DefinedLevel;
import com.olvane.kep.olvane.defs.OutlineMemberProperties;
import com.olvane.kep.olvane.defs.calcscript.MemberInfo;
import com.olvane.kep.olvane.defs.outline.AttributeDateFormat;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.AttributeSpecification;
import com.olvane.kep.olvane.defs.outline.AttributeType;
import com.olvane.kep.olvane.defs.outline.BucketingType;
import com.olvane.kep.olvane.defs.outline.Consolidation;
import com.olvane.kep.olvane.defs.outline.CurrencyConversion;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.DimensionCategory;
import com.olvane.kep.olvane.defs.outline.DimensionStorageType;
import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.defs.outline.FormulaHolder;
import com.olvane.kep.olvane.defs.outline.GlobalVerifyError;
import com.olvane.kep.olvane.defs.outline.LongNameConstructor;
import com.olvane.kep.olvane.defs.outline.LongNameDelimiter;
import com.olvane.kep.olvane.defs.outline.LongNameSource;
import com.olvane.kep.olvane.defs.outline.MemberAlias;
import com.olvane.kep.olvane.defs.outline.MemberAttribute;
import com.olvane.kep.olvane.defs.outline.MemberPath;
import com.olvane.kep.olvane.defs.outline.MemberReference;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import com.olvane.kep.olvane.defs.outline.MemberVerifyError;
import com.olvane.kep.olvane.defs.outline.OutlineInformation;
import com.olvane.kep.olvane.defs.outline.OutlineSettings;
import com.olvane.kep.olvane.defs.outline.Share;
import com.olvane.kep.olvane.defs.outline.TimeBalance;
import com.olvane.kep.olvane.defs.outline.TimeBalanceSkip;
import com.olvane.kep.olvane.defs.outline.VerifyFinding;
import java.util.Collection;
import java.util.List;

/**
 * The native methods of the outline editor. They open, browse, search, change, verify and save
 * outlines of a multidimensional database through the client API, whose opaque handles the caller
 * keeps in wrapper objects.
 *
 * <p><b>Statuses.</b> Unless a method says otherwise it returns the status of the API call that
 * decided its outcome: 0 for success, any other number from the API unchanged. -1 is the
 * library's own refusal. When a handle that a method needs is 0, the method does nothing and
 * returns 0; open an outline before using it.
 *
 * <p><b>Results.</b> Collections and objects passed for results are filled in outline order and
 * only added to. Any object with the methods that are called on it would do; the parameter types
 * name the natural ones.
 *
 * <p><b>Handle or name.</b> Methods that take both a member handle and a member name use a handle
 * that is not 0 and look the name up otherwise.
 *
 * <p><b>Texts.</b> A null text counts as empty. Texts that do not fit an outline are refused,
 * never cut.
 *
 * <p><b>Threads.</b> The methods are static because the library keeps nothing between calls. They
 * may be called from any thread; calls on different outlines run in parallel.
 *
 * <p>The class loads its library when it is first used; {@link NativeLibrary} tells where from.
 * The class is long because it is one interface.
 */
public final class OutlineJni {
  static {
    NativeLibrary.load();
  }

  private OutlineJni() {}

  // ---- Opening and closing ----

  /**
   * Opens the outline of the context's active database for browsing.
   *
   * @param context the login context
   * @param outline receives the handle of the opened outline
   * @return the API's status; 0 also when {@code context} holds no handle
   */
  public static native int openOutlineQuery(ContextHandle context, OutlineHandle outline);

  /**
   * Closes an outline that was opened for browsing.
   *
   * @param outline the outline to close; its handle is reset to 0 on success
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int closeOutlineQuery(OutlineHandle outline);

  /**
   * Opens an outline for editing. The outline object stays locked for the context until {@link
   * #closeOutlineEdit}.
   *
   * @param context the login context
   * @param application the name of the application
   * @param database the name of the database
   * @param object the name of the outline object; for a database's own outline the name of the
   *     database
   * @param outline receives the handle of the opened outline
   * @return the API's status; 0 also when {@code context} holds no handle
   */
  public static native int openOutlineEdit(
      ContextHandle context,
      String application,
      String database,
      String object,
      OutlineHandle outline);

  /**
   * Unlocks the outline object of a database and closes the outline. Changes that were not
   * written are lost. When the closing fails the object has been unlocked all the same.
   *
   * @param context the login context that opened the outline; without a handle the lock is left
   *     alone
   * @param outline the outline to close; its handle is reset to 0 on success
   * @param application the name of the application
   * @param database the name of the database
   * @return the status of the closing; 0 when {@code outline} holds no handle
   */
  public static native int closeOutlineEdit(
      ContextHandle context, OutlineHandle outline, String application, String database);

  // ---- Verifying, saving, restructuring ----

  /**
   * Verifies an edited outline. Errors found do not make the call fail: a sound outline leaves
   * {@code errors} as it was.
   *
   * @param instance the API instance, through which API memory is given back
   * @param context not used
   * @param outline the open outline
   * @param errors receives at most one {@link GlobalVerifyError}, then one {@link
   *     MemberVerifyError} per member in error
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int verifyOutlineEdit(
      InstanceHandle instance,
      ContextHandle context,
      OutlineHandle outline,
      Collection<? super VerifyFinding> errors);

  /**
   * Writes an edited outline to the outline object of a database. The lock of {@link
   * #openOutlineEdit} is taken for granted.
   *
   * @param context the login context
   * @param outline the open outline
   * @param application the name of the application
   * @param database the name of the database
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int write(
      ContextHandle context, OutlineHandle outline, String application, String database);

  /**
   * Saves an outline as the outline of another database: locks that outline object, writes it,
   * makes the database active, restructures it, waits for the end and unlocks. The object is
   * unlocked on every path.
   *
   * @param instance the API instance; not used
   * @param context the login context of the outline; must hold a handle
   * @param outline the open outline
   * @param target the login context to save through
   * @param application the application to save to
   * @param database the database to save to
   * @return the first status that is not 0 of these steps; 0 when a handle is missing
   */
  public static native int saveAsObject(
      InstanceHandle instance,
      ContextHandle context,
      OutlineHandle outline,
      ContextHandle target,
      String application,
      String database);

  /**
   * Saves an outline as a file of the local scratch area, under the first free name. The file
   * stays there until somebody removes it.
   *
   * @param instance the API instance, through which API memory is given back
   * @param context the login context of the outline; must hold a handle
   * @param outline the open outline
   * @param result receives the path and size of the file
   * @return the status of the first step that failed, 0 for success or when a handle is missing,
   *     -1 when the scratch area has no path
   */
  public static native int saveAsFileBegin(
      InstanceHandle instance, ContextHandle context, OutlineHandle outline, SavedFile result);

  /**
   * Makes a database active, restructures it and waits for the end. The calling thread polls the
   * server until then.
   *
   * @param context the login context
   * @param option the restructure option, an unsigned 16-bit number
   * @param application the name of the application
   * @param database the name of the database
   * @return the API's status; 0 also when {@code context} holds no handle
   */
  public static native int restructure(
      ContextHandle context, short option, String application, String database);

  // ---- The database behind the outline ----

  /**
   * Counts the cells of an area of the active database.
   *
   * @param context the login context
   * @param area the area, a list of member names
   * @param count receives the number of cells, truncated; -2147483648 when it does not fit 32
   *     bits
   * @return the API's status; 0 also when {@code context} holds no handle
   */
  public static native int getCellCount(ContextHandle context, String area, IntHolder count);

  /**
   * Tells whether a database holds data.
   *
   * @param instance the API instance, through which API memory is given back
   * @param context the login context
   * @param application the name of the application
   * @param database the name of the database
   * @return -1 when data is loaded, 0 when not or when {@code context} holds no handle, otherwise
   *     the API's status
   */
  public static native int getDataLoaded(
      InstanceHandle instance, ContextHandle context, String application, String database);

  /**
   * Reads the lock indicator of a database's outline object.
   *
   * @param instance the API instance, through which API memory is given back
   * @param context the login context
   * @param application the name of the application
   * @param database the name of the database
   * @return the indicator from 0 (not locked) to 255, or the API's status on failure; 0 when
   *     {@code context} holds no handle
   */
  public static native int getLockedState(
      InstanceHandle instance, ContextHandle context, String application, String database);

  /**
   * Derives the currency outline of the open outline, writes it to the currency database,
   * restructures that and waits for the end. The outline object is locked meanwhile.
   *
   * @param instance the API instance; not used
   * @param outline the outline of the main database; it stays open and unchanged
   * @param context the login context
   * @param application the application of the currency database
   * @param database the name of the currency database
   * @return the first status that is not 0; 0 when {@code outline} holds no handle
   */
  public static native int generateCurrencyDB(
      InstanceHandle instance,
      OutlineHandle outline,
      ContextHandle context,
      String application,
      String database);

  // ---- Dimensions, children, members ----

  /**
   * Reads the properties of the member of a given name.
   *
   * @param outline the open outline
   * @param name the name of the member
   * @param properties receives the properties; untouched when there is no such member
   * @return the API's status; 0 also when no member has that name
   */
  public static native int getMemberInfo(
      OutlineHandle outline, String name, OutlineMemberProperties properties);

  /**
   * Lists the names of the dimensions in outline order.
   *
   * @param outline the open outline
   * @param names receives one name per dimension
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getDimensions(OutlineHandle outline, List<String> names);

  /**
   * Lists the dimensions with their aliases. Each text is the name, the alias and the tag {@code
   * Time} for a time dimension, each enclosed in double quotes with nothing between; an alias or
   * tag that is missing is empty.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param table the name of the alias table
   * @param texts receives one text per dimension
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getDimensionsAlias(
      InstanceHandle instance, OutlineHandle outline, String table, List<String> texts);

  /**
   * Lists the names of a member's children in outline order.
   *
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param name the name of the parent
   * @param names receives one name per child
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getChildrenFor(
      OutlineHandle outline, String dimension, String name, List<String> names);

  /**
   * Lists a member's children with their aliases. Each text is the name and the alias, each
   * enclosed in double quotes with nothing between; a missing alias is empty.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param name the name of the parent
   * @param table the name of the alias table
   * @param texts receives one text per child
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getChildrenAliasFor(
      InstanceHandle instance,
      OutlineHandle outline,
      String dimension,
      String name,
      String table,
      List<String> texts);

  /**
   * Lists children of a member with all their properties, attributes and default aliases, from a
   * given position on.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param name the name of the parent
   * @param start the index of the first child to list, at most 4294967295
   * @param count the largest number of children to list, 0 for all
   * @param children receives one object per child
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getChildrenWithProperties(
      InstanceHandle instance,
      OutlineHandle outline,
      String dimension,
      String name,
      long start,
      int count,
      List<OutlineMemberProperties> children);

  /**
   * Lists the children of a member as full member objects.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param name the name of the member, used only when {@code member} is 0; empty for none
   * @param member the handle of the member, or 0 to find it by name
   * @param children receives the children with their handles
   * @return the API's status; 0 also when neither handle nor name is given
   */
  public static native int getChildrenEx(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      int member,
      Collection<? super DefaultMember> children);

  /**
   * Lists the children of a member, found by query, as full member objects without handles.
   *
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param name the name of the parent
   * @param children receives the children, with handle 0
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getChildrenExQuery(
      OutlineHandle outline,
      String dimension,
      String name,
      Collection<? super DefaultMember> children);

  /**
   * Lists the dimensions as full member objects.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param dimensions receives the dimensions with their handles
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getDimensionsEx(
      InstanceHandle instance, OutlineHandle outline, Collection<? super DefaultMember> dimensions);

  /**
   * Lists the dimensions, found by query, as full member objects without handles.
   *
   * @param outline the open outline
   * @param dimensions receives the dimensions, with handle 0
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getDimensionsExQuery(
      OutlineHandle outline, Collection<? super DefaultMember> dimensions);

  /**
   * Lists the ancestors of a member; a dimension has none.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param name the name of the member, used only when {@code member} is 0; empty for none
   * @param member the handle of the member, or 0 to find it by name
   * @param ancestors receives the ancestors, the parent first and the dimension last
   * @return the API's status; 0 also when neither handle nor name is given
   */
  public static native int getMemberAncestors(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      int member,
      Collection<? super DefaultMember> ancestors);

  /**
   * Counts the children of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param name the name of the member, used only when {@code member} is 0; empty for none
   * @param member the handle of the member, or 0 to find it by name
   * @param result receives the number of children
   * @return the API's status; 0 also when neither handle nor name is given
   */
  public static native int getMemberChildCount(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      int member,
      Collection<? super Long> result);

  /**
   * Reads the level of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param name the name of the member, used only when {@code member} is 0; empty for none
   * @param member the handle of the member, or 0 to find it by name
   * @param result receives the level, 0 for a member without children
   * @return the API's status; 0 also when neither handle nor name is given
   */
  public static native int getMemberLevel(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      int member,
      Collection<? super Short> result);

  // ---- Details of members ----

  /**
   * Reads the formula of a member.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the member, used only when {@code member} is 0; empty for none
   * @param member the handle of the member, or 0 to find it by name
   * @param target receives the formula; untouched when the member has none
   * @return the API's status; 0 also when neither handle nor name is given
   */
  public static native int getMemberFormula(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      int member,
      FormulaHolder target);

  /**
   * Reads the formula of a member that is found by query.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the member
   * @param target receives the formula; untouched when the member has none
   * @return the API's status; 0 also when the name is empty or matches no member
   */
  public static native int getMemberFormulaQuery(
      InstanceHandle instance, OutlineHandle outline, String name, FormulaHolder target);

  /**
   * Reads the formulas of many members. Every member found gives one result; its data is the
   * formula, or empty when it has none. A request that names no member gives no result.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param requests the members asked about
   * @param results receives the results, in the order of the requests
   * @return the status of the last API call
   */
  public static native int getMemberFormulaBlock(
      InstanceHandle instance,
      OutlineHandle outline,
      List<? extends MemberReference> requests,
      Collection<? super MemberRequestResult> results);

  /**
   * Reads the alias of a member in every alias table. A table without an alias is listed too.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param member the handle of the member
   * @param aliases receives one object per alias table, in table order
   * @return the status of the last API call; 0 also when {@code member} is 0
   */
  public static native int getMemberAliases(
      InstanceHandle instance,
      OutlineHandle outline,
      int member,
      Collection<? super MemberAlias> aliases);

  /**
   * Reads the alias in every alias table of a member that is found by query.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the member
   * @param aliases receives one object per alias table, in table order
   * @return the status of the last API call; 0 also when the name is empty or matches no member
   */
  public static native int getMemberAliasesQuery(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      Collection<? super MemberAlias> aliases);

  /**
   * Reads the aliases of many members. Every member found gives one result; its data is one
   * {@link MemberAlias} per alias table. A request that names no member gives no result.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param requests the members asked about
   * @param results receives the results, in the order of the requests
   * @return the status of the last API call
   */
  public static native int getMemberAliasesBlock(
      InstanceHandle instance,
      OutlineHandle outline,
      List<? extends MemberReference> requests,
      Collection<? super MemberRequestResult> results);

  /**
   * Reads the aliases of many members in one alias table. Names that are empty or not in the
   * outline are passed over.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param table the name of the alias table; not read when {@code noTable} is true
   * @param names the members asked about; the text of each item is a member name
   * @param aliases receives one object per member found, in the order of {@code names}
   * @param noTable true for the default table
   * @return the status of the last API call
   */
  public static native int getMemberAliasesForTable(
      InstanceHandle instance,
      OutlineHandle outline,
      String table,
      List<?> names,
      Collection<? super MemberAlias> aliases,
      boolean noTable);

  /**
   * Reads the attribute members that a member is associated with.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param member the handle of the member
   * @param attributes receives one object per associated attribute member
   * @return the API's status; 0 also when {@code member} is 0
   */
  public static native int getMemberAttributes(
      InstanceHandle instance,
      OutlineHandle outline,
      int member,
      Collection<? super MemberAttribute> attributes);

  /**
   * Checks that the attribute associations of a member can be read. Nothing but the status comes
   * back.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the member
   * @return the status of the last API call; 0 also when the name is empty or matches no member
   */
  public static native int getMemberAttributesQuery(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Reads the attribute associations of many members. Only members that have some give a result;
   * its data is one {@link MemberAttribute} per associated attribute member.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param requests the members asked about
   * @param results receives the results, in the order of the requests
   * @return the status of the last API call
   */
  public static native int getMemberAttributesBlock(
      InstanceHandle instance,
      OutlineHandle outline,
      List<? extends MemberReference> requests,
      Collection<? super MemberRequestResult> results);

  /**
   * Reads the user-defined attributes of a member.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the member, used only when {@code member} is 0; empty for none
   * @param member the handle of the member, or 0 to find it by name
   * @param attributes receives the user-defined attributes
   * @return the API's status; 0 also when neither handle nor name is given
   */
  public static native int getMemberUDAS(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      int member,
      Collection<? super String> attributes);

  /**
   * Reads the user-defined attributes of a member that is found by query.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the member
   * @param attributes receives the user-defined attributes
   * @return the API's status; 0 also when the name is empty or matches no member
   */
  public static native int getMemberUDASQuery(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      Collection<? super String> attributes);

  /**
   * Reads the user-defined attributes of many members. Every member found gives one result; its
   * data is one {@code String} per attribute. A request that names no member gives no result.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param requests the members asked about
   * @param results receives the results, in the order of the requests
   * @return the status of the last API call
   */
  public static native int getMemberUDASBlock(
      InstanceHandle instance,
      OutlineHandle outline,
      List<? extends MemberReference> requests,
      Collection<? super MemberRequestResult> results);

  /**
   * Lists the user-defined attributes that the members of a dimension carry.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param unused not read
   * @param attributes receives the user-defined attributes
   * @return the API's status; 0 also when the name is empty
   */
  public static native int getDimensionUDAS(
      InstanceHandle instance,
      OutlineHandle outline,
      String dimension,
      int unused,
      Collection<? super String> attributes);

  // ---- Member lists for calculation scripts ----

  /**
   * Lists the children of a member in light form.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the parent
   * @param useAliases true to name members by their aliases where they have one
   * @param table the name of the alias table; {@code Default}, in any case, is the outline's
   *     default table
   * @param members receives the children
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int listOutlineMembers(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      boolean useAliases,
      String table,
      Collection<? super MemberInfo> members);

  /**
   * Lists the members whose name, or alias when aliases are used, matches a search text.
   *
   * @param outline the open outline
   * @param dimension the dimension to search, or null for all
   * @param text the search text; {@code *} and {@code ?} are wildcards
   * @param useAliases true to name members by their aliases where they have one
   * @param table the name of the alias table; may be null when aliases are not used; {@code
   *     Default}, in any case, is the outline's default table
   * @param members receives the members that match, each with its parent
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int listFindMembers(
      OutlineHandle outline,
      String dimension,
      String text,
      boolean useAliases,
      String table,
      Collection<? super MemberInfo> members);

  /**
   * Tells whether a member of a given name exists.
   *
   * @param outline the open outline
   * @param name the name to look for
   * @return true only if the member was found
   */
  public static native boolean findMember(OutlineHandle outline, String name);

  // ---- Settings of the outline ----

  /**
   * Reads the outline-wide settings as plain values.
   *
   * @param outline the open outline
   * @param information receives the settings
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getOutlineInfo(OutlineHandle outline, OutlineInformation information);

  /**
   * Reads the outline-wide settings with their codes as value objects.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param settings receives the settings
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getSettings(
      InstanceHandle instance, OutlineHandle outline, OutlineSettings settings);

  /**
   * Reads how attribute members are named and calculated, as plain values.
   *
   * @param outline the open outline
   * @param specification receives the specification
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getAttributeSpecs(
      OutlineHandle outline, AttributeSpecification specification);

  /**
   * Reads how attribute members are named and calculated, with codes as value objects.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param settings receives the specification
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getAttributeSpecsEx(
      InstanceHandle instance, OutlineHandle outline, AttributeSettings settings);

  /**
   * Sets whether dimensions are configured automatically. Whether warnings are provided stays as
   * it is.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param enabled true to configure automatically
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateAutoConfigure(
      InstanceHandle instance, OutlineHandle outline, boolean enabled);

  /**
   * Sets whether member names are case-sensitive.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param caseSensitive true if names that differ in case are different
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateCaseSensitivity(
      InstanceHandle instance, OutlineHandle outline, boolean caseSensitive);

  /**
   * Sets how the long names of attribute members are built.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param constructor the new code
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateLongnameConstructor(
      InstanceHandle instance, OutlineHandle outline, LongNameConstructor constructor);

  /**
   * Sets which names long names are built from.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param source the new code
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateLongnameSource(
      InstanceHandle instance, OutlineHandle outline, LongNameSource source);

  /**
   * Sets what stands between the parts of a long name; the low 8 bits of the code are kept.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param delimiter the new code
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateLongnameDelimiter(
      InstanceHandle instance, OutlineHandle outline, LongNameDelimiter delimiter);

  /**
   * Sets the date format of attribute members.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param format the new code
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateDateFormat(
      InstanceHandle instance, OutlineHandle outline, AttributeDateFormat format);

  /**
   * Sets how numeric attribute members bound their ranges.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param type the new code
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateBucketingType(
      InstanceHandle instance, OutlineHandle outline, BucketingType type);

  /**
   * Sets the member name for Boolean TRUE.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateBooleanNameTrue(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Sets the member name for Boolean FALSE.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateBooleanNameFalse(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Sets the name of the attribute-calculations dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateCalcDimName(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Sets the name of the Sum member of the attribute-calculations dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateSumMemberName(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Sets the name of the Count member of the attribute-calculations dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateCountMemberName(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Sets the name of the Average member of the attribute-calculations dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateAverageMemberName(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Sets the name of the Minimum member of the attribute-calculations dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateMinimumMemberName(
      InstanceHandle instance, OutlineHandle outline, String name);

  /**
   * Sets the name of the Maximum member of the attribute-calculations dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int updateMaximumMemberName(
      InstanceHandle instance, OutlineHandle outline, String name);

  // ---- Alias tables ----

  /**
   * Creates an empty alias table.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param table the name of the new table, at most 30 bytes
   * @return the API's status, 1060040 when there is a table of that name
   */
  public static native int createAliasTable(
      InstanceHandle instance, OutlineHandle outline, String table);

  /**
   * Deletes an alias table with its aliases. The default table stays.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param table the name of the alias table
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int deleteAliasTable(
      InstanceHandle instance, OutlineHandle outline, String table);

  /**
   * Removes all aliases from an alias table.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param table the name of the alias table
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int clearAliasTable(
      InstanceHandle instance, OutlineHandle outline, String table);

  /**
   * Renames an alias table.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param table the present name
   * @param newName the new name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int renameAliasTable(
      InstanceHandle instance, OutlineHandle outline, String table, String newName);

  /**
   * Copies an alias table with its aliases.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param table the table to copy
   * @param newName the name of the copy
   * @param overwrite true to replace a table of that name
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int copyAliasTable(
      InstanceHandle instance,
      OutlineHandle outline,
      String table,
      String newName,
      boolean overwrite);

  /**
   * Writes an alias table to a text file: every member that has an alias in it, in outline order.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param table the name of the alias table; empty for the default table
   * @param file the path of the file; what it held is replaced
   * @return the status of the last API call, -1 when the file cannot be opened, written or closed
   */
  public static native int exportAliasTable(
      InstanceHandle instance, OutlineHandle outline, String table, String file);

  /**
   * Reads an alias table from a text file: creates the table and assigns the aliases. Lines that
   * name no member of the outline are passed over.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param file the path of the file
   * @param table the name of the table to fill; when empty the name is taken from the file and
   *     appended here
   * @param allowExisting true to fill a table that exists already
   * @param usedTable receives the name of the table that is filled
   * @return the status of the last pair, that of the table's creation when it stopped the import,
   *     -1 when the file cannot be opened
   */
  public static native int importAliasTable(
      InstanceHandle instance,
      OutlineHandle outline,
      String file,
      StringBuffer table,
      boolean allowExisting,
      StringBuffer usedTable);

  // ---- Creating, renaming, moving, deleting, sorting members ----

  /**
   * Adds a member or a dimension. It takes the properties that its dimension, or for a dimension
   * its previous sibling, calls for. The name may repeat that of another member but not that of a
   * dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param parent the handle of the parent, or 0 for a new dimension
   * @param previousSibling the handle of the member to follow, or 0 to come first
   * @param name the name, at most 80 bytes
   * @param result receives the new member
   * @return the API's status, 1060051 when the name is taken, -1 when it is too long; 0 with
   *     nothing added when it is empty
   */
  public static native int createMember(
      InstanceHandle instance,
      OutlineHandle outline,
      int parent,
      int previousSibling,
      String name,
      Collection<? super DefaultMember> result);

  /**
   * Renames a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param name the new name
   * @return the API's status; 0 with nothing done when {@code member} is 0 or the name is empty
   */
  public static native int renameMember(
      InstanceHandle instance, OutlineHandle outline, int member, String name);

  /**
   * Moves a member with its subtree.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param reference the handle of the new previous sibling or parent, or 0 to move to the top
   * @param member the handle of the member to move
   * @param asSibling true if {@code reference} is the new previous sibling, false if it is the
   *     new parent
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int moveMember(
      InstanceHandle instance, OutlineHandle outline, int reference, int member, boolean asSibling);

  /**
   * Deletes a member with its subtree.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int deleteMember(InstanceHandle instance, OutlineHandle outline, int member);

  /**
   * Sorts the children of a member by name.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param parent the handle of the parent
   * @param ascending true for ascending, false for descending order
   * @return the API's status; 0 with nothing done when {@code parent} is 0
   */
  public static native int sortChildren(
      InstanceHandle instance, OutlineHandle outline, int parent, boolean ascending);

  // ---- Properties of members ----

  /**
   * Sets the consolidation operator of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param consolidation the new code
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int assignMemberConsolidation(
      InstanceHandle instance, OutlineHandle outline, int member, Consolidation consolidation);

  /**
   * Sets how the data of a member is stored.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param share the new code
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int assignMemberShare(
      InstanceHandle instance, OutlineHandle outline, int member, Share share);

  /**
   * Sets the time balance of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param timeBalance the new code
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int assignMemberTimeBalance(
      InstanceHandle instance, OutlineHandle outline, int member, TimeBalance timeBalance);

  /**
   * Sets which values the time balance of a member leaves out.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param skip the new code
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int assignMemberTimeBalanceSkip(
      InstanceHandle instance, OutlineHandle outline, int member, TimeBalanceSkip skip);

  /**
   * Sets the currency conversion of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param conversion the new code
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int assignMemberConversion(
      InstanceHandle instance, OutlineHandle outline, int member, CurrencyConversion conversion);

  /**
   * Sets whether a member is calculated in two passes.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param twoPass true for two passes
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int assignMemberTwoPass(
      InstanceHandle instance, OutlineHandle outline, int member, boolean twoPass);

  /**
   * Sets whether a member is an expense in variance reports.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param expense true for an expense
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int assignMemberVariance(
      InstanceHandle instance, OutlineHandle outline, int member, boolean expense);

  /**
   * Sets the currency conversion member or category of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param currencyMember the currency conversion member or category, at most 80 bytes
   * @return the API's status, -1 when the text is too long; 0 with nothing done when {@code
   *     member} is 0
   */
  public static native int assignMemberCategory(
      InstanceHandle instance, OutlineHandle outline, int member, String currencyMember);

  /**
   * Sets the comment of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param comment the comment, at most 257 bytes; empty to remove it
   * @return the API's status, -1 when the text is too long; 0 with nothing done when {@code
   *     member} is 0
   */
  public static native int assignMemberComment(
      InstanceHandle instance, OutlineHandle outline, int member, String comment);

  /**
   * Sets or removes the formula of a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param formula the formula; null or empty to remove it
   * @return the API's status; 0 with nothing done when {@code member} is 0
   */
  public static native int updateMemberFormula(
      InstanceHandle instance, OutlineHandle outline, int member, String formula);

  /**
   * Adds a user-defined attribute to a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param attribute the user-defined attribute, at most 80 bytes
   * @return the API's status; 0 with nothing done when {@code member} is 0 or the text is empty
   */
  public static native int setMemberUDA(
      InstanceHandle instance, OutlineHandle outline, int member, String attribute);

  /**
   * Removes a user-defined attribute from a member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param attribute the user-defined attribute
   * @return the API's status; 0 with nothing done when {@code member} is 0 or the text is empty
   */
  public static native int deleteMemberUDA(
      InstanceHandle instance, OutlineHandle outline, int member, String attribute);

  /**
   * Sets or removes the alias of a member in one alias table.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param member the handle of the member
   * @param table the name of the alias table
   * @param alias the alias; empty to remove it
   * @return the API's status; 0 with nothing done when {@code member} is 0 or the table name is
   *     empty
   */
  public static native int assignMemberAlias(
      InstanceHandle instance, OutlineHandle outline, int member, String table, String alias);

  // ---- Attribute dimensions and dimension properties ----

  /**
   * Associates an attribute dimension with a base dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param baseDimension the handle of the base dimension
   * @param attributeDimension the handle of the attribute dimension
   * @return the API's status, -1 when a dimension handle is 0
   */
  public static native int assignAttributeDimension(
      InstanceHandle instance, OutlineHandle outline, int baseDimension, int attributeDimension);

  /**
   * Removes the association of an attribute dimension with a base dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param baseDimension the handle of the base dimension
   * @param attributeDimension the name of the attribute dimension
   * @return the API's status, -1 when {@code baseDimension} is 0
   */
  public static native int unassignAttributeDimension(
      InstanceHandle instance, OutlineHandle outline, int baseDimension, String attributeDimension);

  /**
   * Associates an attribute member with a base member. Their dimensions must be associated.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param baseMember the handle of the base member
   * @param attributeMember the name of the attribute member
   * @return the API's status, -1 when {@code baseMember} is 0 or {@code outline} holds no handle
   */
  public static native int assignAttributeMember(
      InstanceHandle instance, OutlineHandle outline, int baseMember, String attributeMember);

  /**
   * Removes the association of an attribute member with a base member.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param baseMember the handle of the base member
   * @param attributeMember the name of the attribute member
   * @return the API's status; with {@code baseMember} 0, that of looking the attribute member up
   */
  public static native int unassignAttributeMember(
      InstanceHandle instance, OutlineHandle outline, int baseMember, String attributeMember);

  /**
   * Sets whether hybrid analysis is enabled for a dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param dimension the handle of the dimension
   * @param enabled true to enable it
   * @return the API's status; 0 with nothing done when {@code dimension} is 0
   */
  public static native int assignDimensionHybridAnalysis(
      InstanceHandle instance, OutlineHandle outline, int dimension, boolean enabled);

  /**
   * Sets the storage type of a dimension. All its attribute associations are removed first.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the handle of the dimension
   * @param type the new storage type
   * @return the API's status; 0 with nothing done when {@code dimension} is 0
   */
  public static native int assignDimensionStorageType(
      InstanceHandle instance, OutlineHandle outline, int dimension, DimensionStorageType type);

  /**
   * Sets the category of a dimension. A dimension that becomes an attribute dimension takes the
   * properties of one and moves behind the regular dimensions that follow it.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param dimension the handle of the dimension
   * @param category the new category
   * @param attributeType the type of an attribute dimension, or null for the default
   * @return the API's status; 0 with nothing done when {@code dimension} is 0
   */
  public static native int assignMemberDimensionCategory(
      InstanceHandle instance,
      OutlineHandle outline,
      int dimension,
      DimensionCategory category,
      AttributeType attributeType);

  // ---- Copying members ----

  /**
   * Begins to copy a member with its subtree: copies the member itself. After a dimension as the
   * target, with {@code asSibling}, the copy becomes a dimension named {@code Copy of ...}.
   * Unless the request is finished, {@link #copyContinue} copies the rest.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param targetName the name of the target, used only when {@code target} is 0
   * @param target the handle of the target, or 0 to find it by name
   * @param sourceName the name of the source, used only when {@code source} is 0
   * @param source the handle of the source, or 0 to find it by name
   * @param asSibling true to place the copy after the target, false to make it the target's first
   *     child
   * @param request receives the state of the copy
   * @param result receives the copy of the source
   * @return 0 for success, 1060013 when the copy is refused or fails
   */
  public static native int copyMember(
      InstanceHandle instance,
      OutlineHandle outline,
      String targetName,
      int target,
      String sourceName,
      int source,
      boolean asSibling,
      CopyRequest request,
      Collection<? super DefaultMember> result);

  /**
   * Copies up to five more members of a copy that {@link #copyMember} began. Copies made before a
   * failure stay.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param request the state of the copy, which is advanced
   * @return the API's status, 1060013 when a member cannot be copied
   */
  public static native int copyContinue(
      InstanceHandle instance, OutlineHandle outline, CopyRequest request);

  // ---- Generations and levels ----

  /**
   * Lists the names given to generations of a dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param names receives the names
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getGenerations(
      InstanceHandle instance, OutlineHandle outline, String dimension, List<String> names);

  /**
   * Lists the names given to levels of a dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param names receives the names
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getLevels(
      InstanceHandle instance, OutlineHandle outline, String dimension, List<String> names);

  /**
   * Lists every generation of a dimension, with a generated name where none was given.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param generations receives one object per generation
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getActualGenerations(
      InstanceHandle instance,
      OutlineHandle outline,
      String dimension,
      List<GenerationOrLevel> generations);

  /**
   * Lists every level of a dimension, with a generated name where none was given.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param levels receives one object per level
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getActualLevels(
      InstanceHandle instance,
      OutlineHandle outline,
      String dimension,
      List<GenerationOrLevel> levels);

  /**
   * Lists every generation of every dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param generations receives one object per generation
   * @return the status of the last step from dimension to dimension
   */
  public static native int getAllGenerations(
      InstanceHandle instance,
      OutlineHandle outline,
      Collection<? super DefinedGeneration> generations);

  /**
   * Lists every level of every dimension.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param levels receives one object per level
   * @return the status of the last step from dimension to dimension
   */
  public static native int getAllLevels(
      InstanceHandle instance, OutlineHandle outline, Collection<? super DefinedLevel> levels);

  /**
   * Lists every generation of every dimension, the dimensions being found by query.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param generations receives one object per generation
   * @return the status of the last API call
   */
  public static native int getAllGenerationsQuery(
      InstanceHandle instance,
      OutlineHandle outline,
      Collection<? super DefinedGeneration> generations);

  /**
   * Lists every level of every dimension, the dimensions being found by query.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param levels receives one object per level
   * @return the status of the last API call
   */
  public static native int getAllLevelsQuery(
      InstanceHandle instance, OutlineHandle outline, Collection<? super DefinedLevel> levels);

  /**
   * Names a generation of a dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param name the name of the generation
   * @param number the number of the generation
   * @return the API's status; 0 with nothing done when a text is empty
   */
  public static native int createGeneration(
      InstanceHandle instance, OutlineHandle outline, String dimension, String name, short number);

  /**
   * Names a level of a dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param name the name of the level
   * @param number the number of the level
   * @return the API's status; 0 with nothing done when a text is empty
   */
  public static native int createLevel(
      InstanceHandle instance, OutlineHandle outline, String dimension, String name, short number);

  /**
   * Removes the name of a generation of a dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param number the number of the generation
   * @return the API's status; 0 with nothing done when the dimension name is empty
   */
  public static native int deleteGeneration(
      InstanceHandle instance, OutlineHandle outline, String dimension, short number);

  /**
   * Removes the name of a level of a dimension.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param number the number of the level
   * @return the API's status; 0 with nothing done when the dimension name is empty
   */
  public static native int deleteLevel(
      InstanceHandle instance, OutlineHandle outline, String dimension, short number);

  // ---- Dynamic time series ----

  /**
   * Lists the names of the enabled dynamic-time-series entries.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param names receives the names of the entries
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getDTSMembers(
      InstanceHandle instance, OutlineHandle outline, List<String> names);

  /**
   * Lists the enabled dynamic-time-series entries with their aliases in every alias table.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param entries receives the entries
   * @return the API's status; 0 also when {@code outline} holds no handle
   */
  public static native int getDTSMembersEx(
      InstanceHandle instance,
      OutlineHandle outline,
      Collection<? super DynamicTimeSeries> entries);

  /**
   * Enables or disables a dynamic-time-series entry. An entry that is enabled already is moved to
   * the given generation.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param name the name of the entry
   * @param generation the generation that the entry is defined on
   * @param enable true to enable, false to disable
   * @return the API's status; 0 with nothing done when the name is empty
   */
  public static native int enableDTSMember(
      InstanceHandle instance,
      OutlineHandle outline,
      String name,
      short generation,
      boolean enable);

  /**
   * Sets the alias of a dynamic-time-series entry in one alias table.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param name the name of the entry
   * @param alias the alias
   * @param table the name of the alias table
   * @return the API's status; 0 with nothing done when a text is empty
   */
  public static native int setDTSMemberAlias(
      InstanceHandle instance, OutlineHandle outline, String name, String alias, String table);

  /**
   * Removes the alias of a dynamic-time-series entry in one alias table.
   *
   * @param instance the API instance; not used
   * @param outline the open outline
   * @param name the name of the entry
   * @param table the name of the alias table
   * @return the API's status; 0 with nothing done when a text is empty
   */
  public static native int deleteDTSMemberAlias(
      InstanceHandle instance, OutlineHandle outline, String name, String table);

  /**
   * Lists the level-0 members of a time dimension from which a latest period can be chosen.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param dimension the name of the dimension
   * @param names receives the names of the members
   * @return the API's status, -1 when {@code outline} holds no handle
   */
  public static native int listDTSLatestMembers(
      InstanceHandle instance, OutlineHandle outline, String dimension, List<String> names);

  // ---- Searching ----

  /**
   * Runs one batch of a search over names, aliases, user-defined attributes and formulas. The
   * search is over when the request's last handle is 0 again.
   *
   * @param instance the API instance, through which API memory is given back
   * @param outline the open outline
   * @param request what to search for; its position and counters are advanced
   * @param results receives the members that match
   * @return always 0
   */
  public static native int findRequest(
      InstanceHandle instance,
      OutlineHandle outline,
      FindRequest request,
      Collection<? super DefaultMember> results);

  /**
   * Searches the whole outline and reports the way from each match up to its dimension.
   *
   * @param outline the open outline
   * @param text the search text
   * @param table the alias table whose aliases are searched in place of names, or null or empty
   *     for names only
   * @param matchCase true if case must match
   * @param matchWholeWord true if only whole words match
   * @param results receives the path of every member that matches
   * @return the API's status; 0 also when the text is empty
   */
  public static native int findMemberQuery(
      OutlineHandle outline,
      String text,
      String table,
      boolean matchCase,
      boolean matchWholeWord,
      Collection<? super MemberPath> results);
}
