package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.MemberRequest;
import com.olvane.kep.olvane.defs.outline.MemberRequestResult;
import com.olvane.kep.olvane.standin.StandinSession;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** The outline of a database while it is open, for browsing or for editing. */
public final class OpenOutline implements AutoCloseable {
  private final StandinSession session;
  private final String application;
  private final String database;
  private final boolean editing;
  private final OutlineHandle handle = new OutlineHandle();

  private OpenOutline(
      StandinSession session, String application, String database, boolean editing) {
    this.session = session;
    this.application = application;
    this.database = database;
    this.editing = editing;
  }

  /**
   * Opens the outline of a database for browsing.
   *
   * @param session the session
   * @param application the name of the application
   * @param database the name of the database
   * @return the outline, to be closed by the caller
   */
  public static OpenOutline query(StandinSession session, String application, String database) {
    OpenOutline outline = new OpenOutline(session, application, database, false);
    session.setActive(application, database);
    check(
        "open the outline of " + outline.name(),
        OutlineJni.openOutlineQuery(session.context(), outline.handle));
    return outline;
  }

  /**
   * Opens the outline of a database for editing, which locks it.
   *
   * @param session the session
   * @param application the name of the application
   * @param database the name of the database
   * @return the outline, to be closed by the caller
   */
  public static OpenOutline edit(StandinSession session, String application, String database) {
    OpenOutline outline = new OpenOutline(session, application, database, true);
    check(
        "edit the outline of " + outline.name(),
        OutlineJni.openOutlineEdit(
            session.context(), application, database, database, outline.handle));
    return outline;
  }

  private String name() {
    return application + "." + database;
  }

  /** {@return the API instance} */
  public InstanceHandle instance() {
    return session.instance();
  }

  /** {@return the handle of the outline} */
  public OutlineHandle handle() {
    return handle;
  }

  /**
   * Finds a member.
   *
   * @param member the name of the member
   * @return its handle
   * @throws IllegalArgumentException if there is no such member
   */
  public int find(String member) {
    // The block requests are the ones that tell the handle of a name.
    List<MemberRequestResult> found = new ArrayList<>();
    check(
        "find the member " + member,
        OutlineJni.getMemberFormulaBlock(
            instance(), handle, Collections.singletonList(new MemberRequest(member)), found));
    if (found.isEmpty()) {
      throw new IllegalArgumentException("There is no member " + member + " in " + name());
    }
    return found.get(0).getHandle();
  }

  /** Writes an edited outline back to its database. */
  public void write() {
    check(
        "write the outline of " + name(),
        OutlineJni.write(session.context(), handle, application, database));
  }

  /** Closes the outline; changes that were not written are lost. */
  @Override
  public void close() {
    if (!handle.isSet()) {
      return;
    }
    int status =
        editing
            ? OutlineJni.closeOutlineEdit(session.context(), handle, application, database)
            : OutlineJni.closeOutlineQuery(handle);
    check("close the outline of " + name(), status);
  }
}
