package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.IntHolder;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.SavedFile;

/**
 * The database that an outline belongs to, and what is done with others through it. What makes a
 * database the active one of the login runs one at a time, and none of it can be cancelled.
 */
public final class Database {
  private final Access access;

  Database(Access access) {
    this.access = access;
  }

  /**
   * Writes the outline to another database and restructures that, which becomes the active one.
   *
   * @param application the name of the other application
   * @param database the name of the other database
   */
  public void saveAs(String application, String database) {
    access.inContext("save " + access + " as " + application + "." + database,
        (i, o) -> OutlineJni.saveAsObject(
            i, access.login.context, o, access.login.context, application, database));
  }

  /**
   * Writes the outline to a new file of the local scratch area.
   *
   * @return the path of the file, which stays until it is removed
   */
  public String saveToScratch() {
    SavedFile file = new SavedFile();
    access.inContext("write " + access + " to a local file",
        (i, o) -> OutlineJni.saveAsFileBegin(i, access.login.context, o, file));
    return file.getLocation();
  }

  /**
   * Restructures the database to what was saved, and waits for the end. It becomes the active one.
   *
   * @param option the number of the restructure option, 1 where nothing speaks for another
   */
  public void restructure(int option) {
    access.inContext("restructure " + access.name(), (i, o) -> OutlineJni.restructure(
        access.login.context, (short) option, access.application, access.database));
  }

  /**
   * Derives the currency outline, writes it to a currency database and restructures that.
   *
   * @param application the application of the currency database
   * @param database the name of the currency database
   */
  public void deriveCurrencyOutline(String application, String database) {
    access.inContext(
        "make " + application + "." + database + " the currency outline of " + access.name(),
        (i, o) -> OutlineJni.generateCurrencyDB(i, o, access.login.context, application, database));
  }

  /**
   * Counts the cells of an area of the stored database, which becomes the active one.
   *
   * @param area names of members, separated by commas; the leaves below each are counted
   * @return the number of cells; -2147483648 when it does not fit
   */
  public int cellCount(String area) {
    IntHolder count = new IntHolder();
    access.inContext("count the cells of " + access.name(), (i, o) -> {
      if (access.login.session != null) {
        access.login.session.setActive(access.application, access.database);
      }
      return OutlineJni.getCellCount(access.login.context, area, count);
    });
    return count.getValue();
  }

  /** {@return whether the database holds data} */
  public boolean holdsData() {
    int answer = access.answer((i, o) -> OutlineJni.getDataLoaded(
        i, access.login.context, access.application, access.database));
    // -1 is its yes.
    Access.check("see whether " + access.name() + " holds data", "", "", answer == -1 ? 0 : answer);
    return answer == -1;
  }

  /** {@return whether somebody has locked the outline, this login included} */
  public boolean isLocked() {
    int answer = access.answer((i, o) -> OutlineJni.getLockedState(
        i, access.login.context, access.application, access.database));
    // The indicator is a byte; statuses are larger.
    Access.check("see whether " + access + " is locked", "", "",
        answer >= 0 && answer <= 0xff ? 0 : answer);
    return answer != 0;
  }
}
