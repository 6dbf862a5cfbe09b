package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Graphics;
import java.awt.Rectangle;
import javax.swing.AbstractButton;
import javax.swing.ButtonModel;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.plaf.ComponentUI;
import javax.swing.plaf.basic.BasicButtonUI;
import javax.swing.plaf.basic.BasicGraphicsUtils;

/** A button with a flat face; the default button of a window has the accent. */
public final class FlatButton extends BasicButtonUI {
  private Color text;

  /** Makes the look of one button. */
  public static ComponentUI createUI(JComponent button) {
    return new FlatButton();
  }

  @Override
  protected void installDefaults(AbstractButton button) {
    super.installDefaults(button);
    button.setRolloverEnabled(true);
    button.setOpaque(false);
    // It keeps the room of its border; the line is drawn with the face.
    button.setBorderPainted(false);
  }

  @Override
  public void paint(Graphics g, JComponent component) {
    AbstractButton button = (AbstractButton) component;
    text = button.getForeground();
    if (button.isContentAreaFilled()) {
      paintFace(g, button);
    }
    super.paint(g, component);
  }

  private void paintFace(Graphics g, AbstractButton button) {
    Palette palette = Theme.palette();
    ButtonModel model = button.getModel();
    boolean main = button instanceof JButton && ((JButton) button).isDefaultButton()
        && model.isEnabled();
    boolean down = model.isArmed() && model.isPressed();
    Color face = main ? down ? palette.accent.darker() : palette.accent
        : down ? palette.selection
            : model.isRollover() && model.isEnabled() ? palette.hover : palette.raised;
    boolean focused = button.isFocusOwner();
    Color line = focused ? palette.accent : main ? null
        : model.isEnabled() ? palette.border : palette.line;
    FlatBorder.paint(
        g, 0, 0, button.getWidth(), button.getHeight(), face, line, focused ? 2f : 1f);
    if (main && focused) {
      FlatBorder.paint(g, 2, 2, button.getWidth() - 4, button.getHeight() - 4, null,
          palette.onAccent, 1f);
    }
    text = !model.isEnabled() ? palette.faint : main ? palette.onAccent : text;
  }

  @Override
  protected void paintText(Graphics g, AbstractButton button, Rectangle where, String shown) {
    Theme.smoothText(g);
    g.setFont(button.getFont());
    g.setColor(text);
    BasicGraphicsUtils.drawStringUnderlineCharAt(g, shown, button.getDisplayedMnemonicIndex(),
        where.x, where.y + g.getFontMetrics().getAscent());
  }
}
