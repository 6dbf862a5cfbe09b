package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;
import java.util.List;

/** Hears of what happens to a workspace, on the event thread. */
interface WorkspaceListener {
  /** The outline was edited, or an edit undone. Members that are shown are out of date. */
  default void changed(OutlineChange change) {}

  /** Other members are selected. */
  default void selected(List<Member> members) {}

  /** Something that takes time began, or, with null, ended. */
  default void busy(Busy busy) {}

  /** Something failed; {@code failure} has the sentence. */
  default void failed(Exception failure) {}

  /** Undo, redo or the need to save changed. */
  default void historyChanged() {}

  /** Work that takes time. */
  interface Busy {
    /** What is being done: "Saving". */
    String title();

    /** How much is done, from 0 to 1; negative where nobody knows. */
    double share();

    /** Whether {@link #cancel} has an effect. */
    boolean canCancel();

    /** Asks for it to be given up; nothing of it stays. */
    void cancel();
  }
}
