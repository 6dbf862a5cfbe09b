package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Graphics;
import java.awt.Rectangle;
import javax.swing.AbstractButton;
import javax.swing.ButtonModel;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.JToolBar;
import javax.swing.plaf.ComponentUI;
import javax.swing.plaf.basic.BasicButtonUI;
import javax.swing.plaf.basic.BasicToggleButtonUI;

/** Buttons with a flat face, drawn in one way whether they stay down or not. */
final class FlatButtons {
  private FlatButtons() {}

  private static boolean isQuiet(AbstractButton button) {
    return button.getParent() instanceof JToolBar;
  }

  /** Draws the face and says in which colour the text stands on it. */
  private static Color paintFace(Graphics g, AbstractButton button) {
    Palette palette = Theme.palette();
    ButtonModel model = button.getModel();
    boolean down = model.isArmed() && model.isPressed();
    boolean quiet = isQuiet(button);
    boolean main = button instanceof JButton && ((JButton) button).isDefaultButton()
        && model.isEnabled();
    Color face = main ? palette.accent : quiet ? null : palette.raised;
    if (model.isSelected() || down) {
      face = main ? palette.accent.darker() : palette.selection;
    } else if (model.isRollover() && model.isEnabled() && !main) {
      face = palette.hover;
    }
    Color line = button.isFocusOwner() ? palette.accent : quiet || main ? null : palette.border;
    if (!model.isEnabled() && line != null) {
      line = palette.line;
    }
    FlatBorder.paint(g, 0, 0, button.getWidth(), button.getHeight(), face, line,
        button.isFocusOwner() ? 2f : 1f);
    if (main && button.isFocusOwner()) {
      FlatBorder.paint(g, 2, 2, button.getWidth() - 4, button.getHeight() - 4, null,
          palette.onAccent, 1f);
    }
    return !model.isEnabled() ? palette.faint : main ? palette.onAccent : button.getForeground();
  }

  private static void paintText(
      Graphics g, AbstractButton button, Rectangle where, String text, Color colour, int underline) {
    Theme.smoothText(g);
    g.setFont(button.getFont());
    g.setColor(colour);
    javax.swing.plaf.basic.BasicGraphicsUtils.drawStringUnderlineCharAt(
        g, text, underline, where.x, where.y + g.getFontMetrics().getAscent());
  }

  private static void install(AbstractButton button) {
    button.setRolloverEnabled(true);
    button.setOpaque(false);
    // It keeps the room of its border; the line is drawn with the face.
    button.setBorderPainted(false);
  }

  /** The look of a plain button. */
  public static final class Plain extends BasicButtonUI {
    private Color text;

    /** Makes the look of one button. */
    public static ComponentUI createUI(JComponent button) {
      return new Plain();
    }

    @Override
    protected void installDefaults(AbstractButton button) {
      super.installDefaults(button);
      install(button);
    }

    @Override
    public void paint(Graphics g, JComponent button) {
      text = ((AbstractButton) button).isContentAreaFilled()
          ? paintFace(g, (AbstractButton) button) : button.getForeground();
      super.paint(g, button);
    }

    @Override
    protected void paintText(Graphics g, AbstractButton button, Rectangle where, String shown) {
      FlatButtons.paintText(
          g, button, where, shown, text, button.getDisplayedMnemonicIndex());
    }
  }

  /** The look of a button that stays down. */
  public static final class Toggle extends BasicToggleButtonUI {
    private Color text;

    /** Makes the look of one button. */
    public static ComponentUI createUI(JComponent button) {
      return new Toggle();
    }

    @Override
    protected void installDefaults(AbstractButton button) {
      super.installDefaults(button);
      install(button);
    }

    @Override
    public void paint(Graphics g, JComponent button) {
      text = paintFace(g, (AbstractButton) button);
      super.paint(g, button);
    }

    @Override
    protected void paintText(Graphics g, AbstractButton button, Rectangle where, String shown) {
      FlatButtons.paintText(
          g, button, where, shown, text, button.getDisplayedMnemonicIndex());
    }
  }
}
