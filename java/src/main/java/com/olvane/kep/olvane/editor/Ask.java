package com.olvane.kep.olvane.editor;

import java.awt.Component;
import javax.swing.JOptionPane;

/** Sentences and questions in dialogs of their own. */
final class Ask {
  static final String TITLE = "Outline Editor";

  private Ask() {}

  /** Shows a sentence. */
  static void say(Component parent, String sentence) {
    JOptionPane.showMessageDialog(parent, sentence, TITLE, JOptionPane.WARNING_MESSAGE);
  }

  /** Shows what failed. */
  static void say(Component parent, Exception failure) {
    say(parent, failure.getMessage() == null ? failure.toString() : failure.getMessage());
  }

  /** Asks; gives the number of the answer, the first being the default, negative for none. */
  static int choose(Component parent, String question, Object... answers) {
    return JOptionPane.showOptionDialog(parent, question, TITLE, JOptionPane.DEFAULT_OPTION,
        JOptionPane.QUESTION_MESSAGE, null, answers, answers[0]);
  }

  /** Asks whether to do something; {@code yes} is the name of the button that does it. */
  static boolean confirm(Component parent, String question, String yes) {
    return choose(parent, question, yes, "Cancel") == 0;
  }
}
