package com.olvane.kep.olvane.editor;

import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.Insets;
import javax.swing.JTextArea;
import javax.swing.JTextField;
import javax.swing.text.JTextComponent;

/** Text components that say in faint letters what an empty one stands for. */
final class Hint {
  /** What an empty field says where several members have different values. */
  static final String DIFFERENT = "(different)";

  private Hint() {}

  /** A field of one line. */
  static final class Field extends JTextField {
    private static final long serialVersionUID = 1;

    Field(int columns) {
      super(columns);
    }

    @Override
    protected void paintComponent(Graphics g) {
      super.paintComponent(g);
      paintHint(g, this);
    }
  }

  /** A field of several lines. */
  static final class Area extends JTextArea {
    private static final long serialVersionUID = 1;

    Area(int rows) {
      super(rows, 10);
      setLineWrap(true);
      setWrapStyleWord(true);
      setMargin(new Insets(4, 6, 4, 6));
    }

    @Override
    protected void paintComponent(Graphics g) {
      super.paintComponent(g);
      paintHint(g, this);
    }
  }

  /** Sets what an empty field says; null for nothing. */
  static void set(JTextComponent field, String hint) {
    field.putClientProperty(Hint.class, hint);
    field.repaint();
  }

  private static void paintHint(Graphics graphics, JTextComponent field) {
    Object hint = field.getClientProperty(Hint.class);
    if (hint == null || field.getDocument().getLength() > 0) {
      return;
    }
    Graphics2D g = (Graphics2D) graphics.create();
    Theme.smoothText(g);
    g.setColor(Theme.palette().faint);
    g.setFont(field.getFont());
    Insets insets = field.getInsets();
    int height = g.getFontMetrics().getHeight();
    int top = field instanceof JTextField ? (field.getHeight() - height) / 2 : insets.top;
    g.drawString(hint.toString(), insets.left, top + g.getFontMetrics().getAscent());
    g.dispose();
  }
}
