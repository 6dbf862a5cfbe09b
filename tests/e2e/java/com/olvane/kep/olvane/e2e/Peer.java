package com.olvane.kep.olvane.e2e;

import com.olvane.kep.olvane.api.jni.NativeLibrary;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.IOException;

/** Another process: edits an outline until its input ends. */
public final class Peer {
  private Peer() {}

  /**
   * Opens the outline of Test.NAME for editing, says from where it has its library, and waits.
   *
   * @param arguments the address of the store and NAME
   * @throws IOException if the input cannot be read
   */
  public static void main(String[] arguments) throws IOException {
    try (StandinSession session = StandinSession.open(arguments[0], "peer of " + arguments[1]);
        OpenOutline open = OpenOutline.edit(session, StoreRule.APPLICATION, arguments[1])) {
      System.out.println(NativeLibrary.location());
      if (!open.handle().isSet() || System.in.read() >= 0) {
        throw new IllegalStateException("the outline was not open until the input ended");
      }
    }
  }
}
