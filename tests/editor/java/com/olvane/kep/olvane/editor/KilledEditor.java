package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.time.Instant;
import javax.swing.JTextField;
import javax.swing.JTree;
import javax.swing.text.JTextComponent;

/** An editor that dies in the middle of work, as soon as the work is kept aside. */
public final class KilledEditor {
  static final int EXIT = 137;

  private KilledEditor() {}

  /**
   * Makes a member below Product in Test.Test, types a comment, waits until that is kept, and dies.
   *
   * @param arguments the folder of the store
   */
  public static void main(String[] arguments) {
    Thread.setDefaultUncaughtExceptionHandler((thread, failure) -> {
      failure.printStackTrace();
      Runtime.getRuntime().halt(1);
    });
    EditorMain.main(new String[] {"--store", arguments[0], "Test", "Test"});
    RobotUser user = new RobotUser();
    JTree tree = user.find(JTree.class, "outline");
    user.click(tree, user.row(tree, "Product"));
    user.key("ctrl shift N");
    JTextField field = user.find(JTextField.class, "name");
    user.waitFor("the name to type over", () -> field.getSelectedText() != null);
    try (Store store = Store.open(arguments[0], "observer")) {
      Instant first = user.waitForOne("the member to be kept", () -> kept(store));
      // Times are told by the second.
      user.waitFor("a later second", () -> Instant.now().isAfter(first.plusMillis(2100)));
      Instant made = kept(store);
      user.type("Precious");
      user.key("ENTER");
      user.waitFor("the name to be kept", () -> kept(store).isAfter(made));
      Instant named = kept(store);
      user.waitFor("a later second", () -> Instant.now().isAfter(named.plusMillis(2100)));
      user.clickInto(user.find(JTextComponent.class, "Comment"));
      user.type("half");
      user.waitFor("what is typed to be kept", () -> kept(store).isAfter(named));
    }
    Runtime.getRuntime().halt(EXIT);
  }

  private static Instant kept(Store store) {
    return store.localObjects().list().stream().filter(one -> one.size() > 0).findFirst()
        .map(StoredDatabase::saved).orElse(null);
  }
}
