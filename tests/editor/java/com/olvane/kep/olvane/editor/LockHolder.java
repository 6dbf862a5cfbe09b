package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Store;
import java.io.IOException;

/** Somebody who edits Test.Test until the input ends. */
public final class LockHolder {
  private LockHolder() {}

  /**
   * Opens the outline, writes a line when it has it, and waits.
   *
   * @param arguments the folder of the store
   * @throws IOException if the input cannot be read
   */
  public static void main(String[] arguments) throws IOException {
    try (Store store = Store.open(arguments[0], "somebody else");
        Outline outline = store.edit("Test", "Test")) {
      System.out.println(outline);
      while (System.in.read() >= 0) {
        // What comes does not matter.
      }
    }
  }
}
