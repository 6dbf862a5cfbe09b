package com.olvane.kep.olvane.editor;

import java.awt.AWTKeyStroke;
import java.awt.Component;
import java.awt.KeyboardFocusManager;
import java.util.Arrays;
import java.util.Set;
import java.util.concurrent.FutureTask;
import java.util.stream.Collectors;
import javax.swing.JDialog;
import javax.swing.JOptionPane;
import javax.swing.SwingUtilities;

/** Sentences and questions in dialogs of their own. */
final class Ask {
  static final String TITLE = "Outline Editor";
  /** So many characters at most are in a line. */
  private static final int LINE = 72;

  private Ask() {}

  /** Shows a sentence. */
  static void say(Component parent, String sentence) {
    choose(parent, sentence, "OK");
  }

  /** Shows what failed. */
  static void say(Component parent, Exception failure) {
    say(parent, sentence(failure));
  }

  static String sentence(Exception failure) {
    return failure.getMessage() == null ? failure.toString() : failure.getMessage();
  }

  /** Asks; gives the number of the answer, the first being the default, negative for none. */
  static int choose(Component parent, String question, Object... answers) {
    JOptionPane pane = new JOptionPane(question, JOptionPane.PLAIN_MESSAGE,
        JOptionPane.DEFAULT_OPTION, null, answers, answers[0]) {
      @Override
      public int getMaxCharactersPerLineCount() {
        return LINE;
      }
    };
    pane.setFocusTraversalKeys(KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, keys("TAB", "RIGHT"));
    pane.setFocusTraversalKeys(
        KeyboardFocusManager.BACKWARD_TRAVERSAL_KEYS, keys("shift TAB", "LEFT"));
    JDialog dialog = pane.createDialog(parent, TITLE);
    dialog.setVisible(true);
    dialog.dispose();
    return Arrays.asList(answers).indexOf(pane.getValue());
  }

  /** The same from another thread than the event thread. */
  static int fromElsewhere(Component parent, String question, Object... answers) throws Exception {
    FutureTask<Integer> asked = new FutureTask<>(() -> choose(parent, question, answers));
    SwingUtilities.invokeLater(asked);
    return asked.get();
  }

  private static Set<AWTKeyStroke> keys(String... keys) {
    return Arrays.stream(keys).map(AWTKeyStroke::getAWTKeyStroke).collect(Collectors.toSet());
  }

  /** Asks whether to do something; {@code yes} is the name of the button that does it. */
  static boolean confirm(Component parent, String question, String yes) {
    return choose(parent, question, yes, "Cancel") == 0;
  }
}
