package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineBulk;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.AttributeType;
import com.olvane.kep.olvane.defs.outline.DimensionStorageType;
import com.olvane.kep.olvane.defs.outline.VerifyFinding;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.function.BooleanSupplier;
import java.util.stream.Collectors;

/**
 * An open outline. It carries out one call at a time, whichever thread it comes from; {@link
 * #close} waits for the one that runs. Close it, best with try-with-resources: an outline that is
 * open for editing is locked, and what was not saved is gone with it.
 */
public final class Outline extends BrowsedOutline implements AutoCloseable {
  /** Takes over an outline that was opened. */
  Outline(Access access) {
    super(access);
  }

  /**
   * Opens the outline of a database for editing, with handles of the vendor's login. It stays
   * locked until it is closed.
   *
   * @param instance the API instance
   * @param context the login context
   * @param application the name of the application
   * @param database the name of the database
   * @return the outline
   * @throws OutlineException if it cannot be opened, for one when somebody else edits it
   */
  public static Outline open(
      InstanceHandle instance, ContextHandle context, String application, String database) {
    Login login = new Login(instance, context, null);
    return new Outline(Access.edit(login, context, application, database));
  }

  /**
   * Opens the outline of the active database for browsing, with handles of the vendor's login.
   *
   * @param instance the API instance
   * @param context the login context, of which the database is the active one
   * @param application the name of the application, for messages
   * @param database the name of the database, for messages
   * @return the outline, which cannot be changed
   * @throws OutlineException if it cannot be opened
   */
  public static Outline browse(
      InstanceHandle instance, ContextHandle context, String application, String database) {
    Login login = new Login(instance, context, null);
    return new Outline(Access.browse(login, application, database));
  }

  /** {@return the name of the application} */
  public String applicationName() {
    return access.application;
  }

  /** {@return the name of the database} */
  public String databaseName() {
    return access.database;
  }

  /** {@return the API instance, for the native methods} */
  public InstanceHandle instance() {
    return access.login.instance;
  }

  /** {@return the handle, for the native methods; their edits are not noticed here} */
  public OutlineHandle handle() {
    return access.handle;
  }

  /** {@return whether it is open for editing} */
  public boolean isEditable() {
    return access.editing;
  }

  /** {@return whether it is open} */
  public boolean isOpen() {
    return access.handle.isSet();
  }

  /** {@return whether it was edited since it was opened or saved} */
  public boolean hasUnsavedEdits() {
    return access.hasUnsavedEdits();
  }

  // ---- Editing members ----

  /**
   * Makes one member.
   *
   * @param place where
   * @param member the member, with members below it if so planned
   * @return the member made
   * @throws OutlineException if it or a member below it is refused
   */
  public Member create(Place place, NewMember member) {
    int[] made = build(place, Collections.singletonList(member));
    return Reading.again(access, member.name(), made[0], Details.NONE);
  }

  /**
   * Makes members one behind the other, with those planned below them, as fast as it goes.
   *
   * @param place where the first is to go
   * @param members the members; they are gone through once
   * @return the handles of the members made, in pre-order
   * @throws OutlineException if one is refused; it tells which were made
   */
  public int[] build(Place place, Iterable<NewMember> members) {
    return new Build(access).run(place.resolve(access), members);
  }

  /**
   * Changes a member.
   *
   * @param member the member
   * @param changes what to change
   * @return the member as it is now
   * @throws OutlineException if a change is refused; those before it were made
   */
  public Member change(Member member, Changes changes) {
    for (String uda : changes.removedUdas) {
      access.edit("remove the user-defined attribute " + uda + " of", member.name(),
          (i, o) -> OutlineJni.deleteMemberUDA(i, o, member.handle(), uda));
    }
    for (String name : changes.removedAttributes) {
      access.edit("remove the attribute " + name + " of", member.name(),
          (i, o) -> OutlineJni.unassignAttributeMember(i, o, member.handle(), name));
    }
    List<String> tables = new ArrayList<>();
    changes.addTables(tables);
    try (BulkCall call = new BulkCall(access, OutlineBulk.UPDATE, tables)) {
      int record = changes.write(call, null, tables);
      call.put(record + OutlineBulk.MAKE_HANDLE, member.handle());
      access.edit("change", member.name(), call);
    }
    return read(member, member.details());
  }

  /**
   * Sets the category of a dimension. One that becomes an attribute dimension moves behind the
   * regular ones that follow it.
   *
   * @param dimension the dimension
   * @param category the category
   */
  public void categorise(Member dimension, DimensionCategory category) {
    categorise(dimension, category, null);
  }

  /**
   * Makes a dimension an attribute dimension of a type.
   *
   * @param dimension the dimension
   * @param type the number of the type, as {@link Member#attributeTypeCode} tells it
   */
  public void makeAttributeDimension(Member dimension, short type) {
    categorise(dimension, DimensionCategory.ATTRIBUTE, new AttributeType(type));
  }

  private void categorise(Member dimension, DimensionCategory category, AttributeType type) {
    access.edit("set the category of", dimension.name(),
        (i, o) -> OutlineJni.assignMemberDimensionCategory(i, o, dimension.handle(),
            new com.olvane.kep.olvane.defs.outline.DimensionCategory(category.code()), type));
  }

  /**
   * Sets the storage type of a dimension. Its attribute dimensions are taken off first.
   *
   * @param dimension the dimension
   * @param code the number of the type, 1 for a regular one
   */
  public void setStorageType(Member dimension, short code) {
    access.edit("set the storage type of", dimension.name(),
        (i, o) -> OutlineJni.assignDimensionStorageType(
            i, o, dimension.handle(), new DimensionStorageType(code)));
  }

  /**
   * Sets whether hybrid analysis is enabled for a dimension.
   *
   * @param dimension the dimension
   * @param enabled true if so
   */
  public void setHybridAnalysis(Member dimension, boolean enabled) {
    access.edit("switch hybrid analysis for", dimension.name(),
        (i, o) -> OutlineJni.assignDimensionHybridAnalysis(i, o, dimension.handle(), enabled));
  }

  /**
   * Renames a member.
   *
   * @param member the member
   * @param name the new name, 1 to 80 bytes
   */
  public void rename(Member member, String name) {
    Texts.given(member.name(), "new name", name, Texts.NAME);
    access.edit("give the name " + name + " to", member.name(),
        (i, o) -> OutlineJni.renameMember(i, o, member.handle(), name));
  }

  /**
   * Moves a member with everything below it.
   *
   * @param member the member
   * @param place where to
   */
  public void move(Member member, Place place) {
    Place.Resolved to = place.resolve(access);
    if (to.sibling == member.handle()) {
      return;
    }
    access.edit("move", member.name(),
        (i, o) -> OutlineJni.moveMember(i, o, to.reference(), member.handle(), to.isBehind()));
  }

  /**
   * Deletes a member with everything below it.
   *
   * @param member the member
   */
  public void delete(Member member) {
    access.edit("delete", member.name(), (i, o) -> OutlineJni.deleteMember(i, o, member.handle()));
  }

  /**
   * Sorts the children of a member by name.
   *
   * @param parent the parent
   * @param ascending false for the reverse order
   */
  public void sortChildren(Member parent, boolean ascending) {
    access.edit("sort the children of", parent.name(),
        (i, o) -> OutlineJni.sortChildren(i, o, parent.handle(), ascending));
  }

  /**
   * Begins to copy a member with everything below it. A copy beside a dimension becomes a
   * dimension.
   *
   * @param source the member
   * @param place where the copy is to go
   * @return the copy, of which one member is made
   */
  public CopyRun copy(Member source, Place place) {
    return new CopyRun(access, source, place.resolve(access));
  }

  // ---- Verifying and saving ----

  /**
   * Looks for errors. It cannot be cancelled.
   *
   * @return what was found, the whole outline first; nothing in a sound one
   */
  public List<Finding> verify() {
    List<VerifyFinding> found = new ArrayList<>();
    access.read("verify " + access,
        (i, o) -> OutlineJni.verifyOutlineEdit(i, access.login.context, o, found));
    return found.stream().map(Finding::new).collect(Collectors.toList());
  }

  /** Writes the outline to its database. It cannot be cancelled. */
  public void save() {
    access.save();
  }

  /**
   * Takes the lock again that is gone, as with a connection that broke: saving said {@link
   * Status#LOCK_LOST} or {@link Status#NOT_LOCKED}. What is edited stays, and what is stored is
   * not looked at; the next save replaces it.
   *
   * @param wanted tells, while the outline is locked again, whether it is to stay so: whether
   *     nobody has stored another one meanwhile
   * @return what {@code wanted} told
   * @throws OutlineException if it cannot be locked, for one when somebody else edits it
   */
  public boolean lockAgain(BooleanSupplier wanted) {
    return access.lockAgain(wanted);
  }

  // ---- The parts of an outline ----

  /** {@return the alias tables} */
  public AliasTables aliasTables() {
    return new AliasTables(access);
  }

  /** {@return the names of generations} */
  public NumberedNames generations() {
    return new NumberedNames(access, true);
  }

  /** {@return the names of levels} */
  public NumberedNames levels() {
    return new NumberedNames(access, false);
  }

  /** {@return the dynamic time series} */
  public TimeSeries timeSeries() {
    return new TimeSeries(access);
  }

  /** {@return the settings of the whole outline} */
  public Settings settings() {
    return new Settings(access);
  }

  /** {@return the attribute dimensions and the settings of attributes} */
  public Attributes attributes() {
    return new Attributes(access);
  }

  /** {@return the database that the outline belongs to, and others that it can be saved to} */
  public Database database() {
    return new Database(access);
  }

  /** Closes the outline after the call that runs; closing again does nothing. */
  @Override
  public void close() {
    access.close();
  }

  @Override
  public String toString() {
    return "Outline of " + access.name();
  }
}
