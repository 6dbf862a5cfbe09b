package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.GenerationOrLevel;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/**
 * The names of the generations or of the levels of dimensions. Generations count from 1, the
 * dimension; levels from 0, the leaves.
 */
public final class NumberedNames {
  private final Access access;
  private final boolean generations;
  private final String kind;

  NumberedNames(Access access, boolean generations) {
    this.access = access;
    this.generations = generations;
    this.kind = generations ? "generation" : "level";
  }

  /**
   * Lists all of a dimension, with a generated name where none was given.
   *
   * @param dimension the dimension
   * @return names by number, in order
   */
  public Map<Integer, String> all(Member dimension) {
    List<GenerationOrLevel> found = new ArrayList<>();
    access.read("list the " + kind + "s of", dimension.name(), (i, o) -> generations
        ? OutlineJni.getActualGenerations(i, o, dimension.name(), found)
        : OutlineJni.getActualLevels(i, o, dimension.name(), found));
    Map<Integer, String> names = new LinkedHashMap<>();
    for (GenerationOrLevel one : found) {
      names.put((int) one.getNumber(), one.getName());
    }
    return names;
  }

  /**
   * Lists the names that were given in a dimension.
   *
   * @param dimension the dimension
   * @return the names
   */
  public List<String> given(Member dimension) {
    List<String> names = new ArrayList<>();
    access.read("list the " + kind + " names of", dimension.name(), (i, o) -> generations
        ? OutlineJni.getGenerations(i, o, dimension.name(), names)
        : OutlineJni.getLevels(i, o, dimension.name(), names));
    return names;
  }

  /**
   * Gives a name.
   *
   * @param dimension the dimension
   * @param number the number of the generation or level
   * @param name the name, 1 to 80 bytes
   */
  public void name(Member dimension, int number, String name) {
    Texts.given(dimension.name(), "name of " + kind + " " + number, name, Texts.NAME);
    short value = number(number);
    access.edit("name " + kind + " " + number + " of", dimension.name(), (i, o) -> generations
        ? OutlineJni.createGeneration(i, o, dimension.name(), name, value)
        : OutlineJni.createLevel(i, o, dimension.name(), name, value));
  }

  /**
   * Removes a name.
   *
   * @param dimension the dimension
   * @param number the number of the generation or level
   */
  public void remove(Member dimension, int number) {
    short value = number(number);
    access.edit("remove the name of " + kind + " " + number + " of", dimension.name(),
        (i, o) -> generations
        ? OutlineJni.deleteGeneration(i, o, dimension.name(), value)
        : OutlineJni.deleteLevel(i, o, dimension.name(), value));
  }

  private short number(int number) {
    if (number < 0 || number > 0xffff) {
      throw new IllegalArgumentException("There is no " + kind + " " + number);
    }
    return (short) number;
  }
}
