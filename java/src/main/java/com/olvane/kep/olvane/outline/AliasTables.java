package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.AliasTable;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/** The alias tables of an outline. Aliases of members are read and set with the members. */
public final class AliasTables {
  private final Access access;

  AliasTables(Access access) {
    this.access = access;
  }

  /** {@return the names of the tables, the default table first} */
  public List<String> names() {
    List<String> names = new ArrayList<>();
    for (AliasTable table : new Settings(access).read().getAliasTables()) {
      names.add(table.isDefaultTable() ? 0 : names.size(), table.getName());
    }
    return names;
  }

  /**
   * Creates an empty table.
   *
   * @param table its name, 1 to 30 bytes
   */
  public void create(String table) {
    Texts.aliasTable(table);
    access.edit("create the alias table " + table,
        (i, o) -> OutlineJni.createAliasTable(i, o, table));
  }

  /**
   * Deletes a table with its aliases.
   *
   * @param table its name
   */
  public void delete(String table) {
    Texts.aliasTable(table);
    access.edit("delete the alias table " + table,
        (i, o) -> OutlineJni.deleteAliasTable(i, o, table));
  }

  /**
   * Removes all aliases from a table.
   *
   * @param table its name
   */
  public void clear(String table) {
    Texts.aliasTable(table);
    access.edit("clear the alias table " + table,
        (i, o) -> OutlineJni.clearAliasTable(i, o, table));
  }

  /**
   * Renames a table.
   *
   * @param table its name
   * @param newName its new name, 1 to 30 bytes
   */
  public void rename(String table, String newName) {
    Texts.aliasTable(table);
    Texts.aliasTable(newName);
    access.edit("rename the alias table " + table + " to " + newName,
        (i, o) -> OutlineJni.renameAliasTable(i, o, table, newName));
  }

  /**
   * Copies a table.
   *
   * @param table its name
   * @param newName the name of the copy, 1 to 30 bytes
   * @param overwrite whether a table of that name may be replaced
   */
  public void copy(String table, String newName, boolean overwrite) {
    Texts.aliasTable(table);
    Texts.aliasTable(newName);
    access.edit("copy the alias table " + table + " to " + newName,
        (i, o) -> OutlineJni.copyAliasTable(i, o, table, newName, overwrite));
  }

  /**
   * Writes a table to a text file, which it replaces.
   *
   * @param table its name
   * @param file the file
   */
  public void exportTo(String table, Path file) {
    Texts.aliasTable(table);
    access.read("write the alias table " + table + " to " + file,
        (i, o) -> OutlineJni.exportAliasTable(i, o, table, file.toString()));
  }

  /**
   * Reads a table from a text file. Lines that name no member are passed over.
   *
   * @param file the file
   * @param table the name of the table to fill, empty to take the one that the file names
   * @param existing whether a table that exists may be filled
   * @return the name of the table that was filled
   * @throws OutlineException if the file cannot be read, the table exists and must not, or an
   *     alias is refused; those before it were set
   */
  public String importFrom(Path file, String table, boolean existing) {
    Texts.fitting("", "name of an alias table", table, Texts.ALIAS_TABLE);
    StringBuffer used = new StringBuffer();
    access.edit("read an alias table from " + file,
        (i, o) -> OutlineJni.importAliasTable(i, o, file.toString(),
            new StringBuffer(table), existing, used));
    return used.toString();
  }
}
