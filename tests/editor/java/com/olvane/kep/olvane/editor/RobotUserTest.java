package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;

import java.awt.BorderLayout;
import java.util.concurrent.atomic.AtomicInteger;
import javax.swing.DropMode;
import javax.swing.JButton;
import javax.swing.JFrame;
import javax.swing.JOptionPane;
import javax.swing.JTextArea;
import javax.swing.JTextField;
import org.junit.Rule;
import org.junit.Test;

/** The user of the other tests: that the keys and clicks arrive that they are made of. */
public class RobotUserTest {
  @Rule public final WindowRule screen = new WindowRule();

  @Test
  public void keysClicksAndDragsArrive() {
    RobotUser user = screen.user;
    AtomicInteger clicks = new AtomicInteger();
    RobotUser.onEventThread(() -> {
      JFrame frame = new JFrame("Self-check");
      JTextField field = new JTextField();
      field.setName("field");
      field.setDragEnabled(true);
      JTextArea area = new JTextArea(5, 30);
      area.setName("area");
      area.setDropMode(DropMode.INSERT);
      JButton button = new JButton("Ask");
      button.addActionListener(event -> {
        clicks.incrementAndGet();
        JOptionPane.showInputDialog(frame, "Name");
      });
      frame.add(field, BorderLayout.NORTH);
      frame.add(area);
      frame.add(button, BorderLayout.SOUTH);
      frame.pack();
      frame.setVisible(true);
      return null;
    });
    JTextField field = user.find(JTextField.class, "field");
    JTextArea area = user.find(JTextArea.class, "area");
    user.click(field);
    String typed = "Az 09 `~!@#$%^&*()_+-={}|[]\\:\";'<>?,./";
    user.type(typed);
    user.waitFor("what was typed", () -> field.getText().equals(typed));
    user.key("ctrl A");
    user.type("\u00e9\u4e2d\u05d0");
    user.waitFor("what was pasted", () -> field.getText().equals("\u00e9\u4e2d\u05d0"));
    user.key("ctrl A");
    user.drag(field, new java.awt.Rectangle(4, 4, 10, 10), area, null);
    user.waitFor("what was dragged", () -> area.getText().equals("\u00e9\u4e2d\u05d0"));

    user.click(user.find(JButton.class, "Ask"));
    JTextField answer = user.find(JTextField.class, "the dialog's field",
        one -> one != field);
    user.waitFor("the keyboard in the dialog", answer::isFocusOwner);
    user.type("yes");
    user.waitFor("the answer", () -> answer.getText().equals("yes"));
    user.key("ESCAPE");
    user.waitFor("the dialog to go", () -> !answer.isShowing());
    user.click(area);
    user.waitFor("the keyboard back in the window", area::isFocusOwner);
    assertEquals(1, clicks.get());
  }
}
