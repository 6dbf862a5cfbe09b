package com.olvane.kep.olvane.editor;

import java.awt.Dimension;
import java.awt.Font;
import java.awt.Rectangle;
import javax.swing.JComponent;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.Scrollable;
import net.miginfocom.swing.MigLayout;

/** A form as wide as what it is seen through, which is scrolled up and down. */
final class Form extends JPanel implements Scrollable {
  private static final long serialVersionUID = 1;

  Form(String layout, String columns) {
    super(new MigLayout(layout, columns));
  }

  /** {@return the view of this form} */
  JScrollPane scrolled() {
    JScrollPane scroll = new JScrollPane(this);
    scroll.setBorder(null);
    scroll.getViewport().setOpaque(false);
    return scroll;
  }

  /** {@return a label as the heading of a component} */
  static JLabel heading(String text, JComponent of) {
    JLabel label = new JLabel(text);
    label.setFont(label.getFont().deriveFont(Font.BOLD));
    label.setLabelFor(of);
    return label;
  }

  @Override
  public Dimension getPreferredScrollableViewportSize() {
    return getPreferredSize();
  }

  @Override
  public int getScrollableUnitIncrement(Rectangle seen, int orientation, int direction) {
    return 16;
  }

  @Override
  public int getScrollableBlockIncrement(Rectangle seen, int orientation, int direction) {
    return seen.height - 32;
  }

  @Override
  public boolean getScrollableTracksViewportWidth() {
    return true;
  }

  @Override
  public boolean getScrollableTracksViewportHeight() {
    return false;
  }
}
