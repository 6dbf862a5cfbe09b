package com.olvane.kep.olvane.cli;

/** Draws the branches of a tree whose lines are printed one by one, parents first. */
public final class TreePrinter {
  private final String indent;
  private boolean[] lastAt = new boolean[8];

  /**
   * Creates a printer for one tree.
   *
   * @param indent what every line begins with
   */
  public TreePrinter(String indent) {
    this.indent = indent;
  }

  /**
   * Draws one line.
   *
   * @param depth the depth of the node, 0 for a root
   * @param last true if no further sibling follows
   * @param text the text of the node
   * @return the line, without an end
   */
  public String line(int depth, boolean last, String text) {
    if (depth >= lastAt.length) {
      lastAt = java.util.Arrays.copyOf(lastAt, 2 * depth);
    }
    lastAt[depth] = last;
    StringBuilder line = new StringBuilder(indent);
    for (int level = 1; level < depth; level++) {
      line.append(lastAt[level] ? "   " : "│  ");
    }
    if (depth > 0) {
      line.append(last ? "└─ " : "├─ ");
    }
    return line.append(text).toString();
  }
}
