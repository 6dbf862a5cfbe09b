package com.olvane.kep.olvane.editor;

import java.awt.BasicStroke;
import java.awt.Color;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.KeyboardFocusManager;
import java.awt.Rectangle;
import java.awt.RenderingHints;
import java.awt.geom.RoundRectangle2D;
import java.util.Objects;
import java.util.stream.Stream;
import javax.swing.AbstractButton;
import javax.swing.BorderFactory;
import javax.swing.ButtonModel;
import javax.swing.Icon;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.JScrollPane;
import javax.swing.SwingUtilities;
import javax.swing.border.EmptyBorder;
import javax.swing.plaf.ComponentUI;
import javax.swing.plaf.UIResource;
import javax.swing.plaf.basic.BasicButtonUI;
import javax.swing.plaf.basic.BasicComboBoxUI;
import javax.swing.plaf.basic.BasicComboPopup;
import javax.swing.plaf.basic.BasicGraphicsUtils;
import javax.swing.plaf.basic.BasicScrollBarUI;
import javax.swing.plaf.basic.BasicTabbedPaneUI;
import javax.swing.plaf.basic.ComboPopup;

/** The looks of what is more than a colour and a border, drawn so that it is sharp at any scale. */
final class Flat {
  /** Client property of a field: true while what is typed is refused. */
  static final String REFUSED = "refused";

  static {
    // Borders and buttons show who has the keyboard; who loses it is not drawn anew by itself.
    KeyboardFocusManager.getCurrentKeyboardFocusManager().addPropertyChangeListener("focusOwner",
        change -> Stream.of(change.getOldValue(), change.getNewValue())
            .filter(Component.class::isInstance).map(one -> ((Component) one).getParent())
            .filter(Objects::nonNull).forEach(Component::repaint));
  }

  private Flat() {}

  private static Graphics2D smooth(Graphics graphics) {
    Graphics2D g = (Graphics2D) graphics.create();
    g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
    g.setRenderingHint(RenderingHints.KEY_STROKE_CONTROL, RenderingHints.VALUE_STROKE_PURE);
    return g;
  }

  /** Draws a rounded box; {@code face} and {@code line} may be null for none. */
  static void box(
      Graphics graphics, int x, int y, int width, int height, Color face, Color line, float thick) {
    Graphics2D g = smooth(graphics);
    if (face != null) {
      g.setColor(face);
      g.fill(new RoundRectangle2D.Float(x, y, width, height, 8, 8));
    }
    if (line != null) {
      g.setColor(line);
      g.setStroke(new BasicStroke(thick));
      g.draw(new RoundRectangle2D.Float(
          x + thick / 2, y + thick / 2, width - thick, height - thick, 7, 7));
    }
    g.dispose();
  }

  /** A line around a field: the accent while it has the focus, of errors while it is refused. */
  static final class Border extends EmptyBorder {
    Border(int vertical, int horizontal) {
      super(vertical, horizontal, vertical, horizontal);
    }

    @Override
    public void paintBorder(Component c, Graphics g, int x, int y, int width, int height) {
      Palette palette = Theme.palette();
      Object field = c instanceof JScrollPane ? ((JScrollPane) c).getViewport().getView() : c;
      boolean refused = Boolean.TRUE.equals(((JComponent) field).getClientProperty(REFUSED));
      Component owner = KeyboardFocusManager.getCurrentKeyboardFocusManager().getFocusOwner();
      boolean focused = owner != null && SwingUtilities.isDescendingFrom(owner, c);
      box(g, x, y, width, height, null,
          refused ? palette.error : focused ? palette.accent : palette.border,
          focused || refused ? 2f : 1f);
    }
  }

  /** A line through points in a square; it is turned where reading goes from right to left. */
  static class LineIcon implements Icon, UIResource {
    private static final int SIZE = 12;
    private final Color colour;
    private final int[] across;
    private final int[] down;

    LineIcon(Color colour, int[] across, int[] down) {
      this.colour = colour;
      this.across = across;
      this.down = down;
    }

    static Icon arrow(Color colour, boolean ahead) {
      int[] straight = {3, 6, 9};
      int[] bent = {5, 8, 5};
      return new LineIcon(colour, ahead ? bent : straight, ahead ? straight : bent);
    }

    @Override
    public int getIconWidth() {
      return SIZE;
    }

    @Override
    public int getIconHeight() {
      return SIZE;
    }

    @Override
    public void paintIcon(Component on, Graphics graphics, int x, int y) {
      Graphics2D g = smooth(graphics);
      g.translate(x, y);
      if (!on.getComponentOrientation().isLeftToRight()) {
        g.translate(SIZE, 0);
        g.scale(-1, 1);
      }
      g.setColor(colour);
      g.setStroke(new BasicStroke(1.6f, BasicStroke.CAP_ROUND, BasicStroke.JOIN_ROUND));
      g.drawPolyline(across, down, across.length);
      g.dispose();
    }
  }

  /** The tick of what is chosen in a menu. */
  static final class Tick extends LineIcon {
    Tick(Color colour) {
      super(colour, new int[] {2, 5, 10}, new int[] {7, 10, 3});
    }

    @Override
    public void paintIcon(Component on, Graphics g, int x, int y) {
      if (((AbstractButton) on).isSelected()) {
        super.paintIcon(on, g, x, y);
      }
    }
  }

  /** A button with a flat face; the default button of a window has the accent. */
  public static final class Button extends BasicButtonUI {
    /** Makes the look of one button. */
    public static ComponentUI createUI(JComponent button) {
      return new Button();
    }

    private static boolean isMain(AbstractButton button) {
      return button instanceof JButton && ((JButton) button).isDefaultButton()
          && button.isEnabled();
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
      if (button.isContentAreaFilled()) {
        Palette palette = Theme.palette();
        ButtonModel model = button.getModel();
        Color face = model.isArmed() && model.isPressed() ? palette.selection
            : isMain(button) ? palette.accent
                : model.isRollover() && model.isEnabled() ? palette.hover : palette.raised;
        boolean focused = button.isFocusOwner();
        Color line = focused ? isMain(button) ? palette.text : palette.accent
            : model.isEnabled() ? palette.border : palette.line;
        box(g, 0, 0, button.getWidth(), button.getHeight(), face, line, focused ? 2f : 1f);
      }
      super.paint(g, component);
    }

    @Override
    protected void paintText(Graphics g, AbstractButton button, Rectangle where, String shown) {
      Palette palette = Theme.palette();
      Theme.smoothText(g);
      g.setColor(!button.isEnabled() ? palette.faint
          : isMain(button) && !button.getModel().isPressed() ? palette.onAccent : palette.text);
      BasicGraphicsUtils.drawStringUnderlineCharAt(g, shown, button.getDisplayedMnemonicIndex(),
          where.x, where.y + g.getFontMetrics().getAscent());
    }
  }

  /** A box with a list: no raised button, rows with room and as wide as what they say. */
  public static final class ComboBox extends BasicComboBoxUI {
    /** Makes the look of one box. */
    public static ComponentUI createUI(JComponent box) {
      return new ComboBox();
    }

    @Override
    protected JButton createArrowButton() {
      JButton button = new JButton(LineIcon.arrow(Theme.palette().text, false));
      button.setBorder(Theme.space(0, 0));
      button.setContentAreaFilled(false);
      return button;
    }

    @Override
    protected ComboPopup createPopup() {
      BasicComboPopup popup = new BasicComboPopup(comboBox) {
        @Override
        protected Rectangle computePopupBounds(int x, int y, int width, int height) {
          return super.computePopupBounds(
              x, y, Math.max(width, list.getPreferredSize().width + 20), height);
        }
      };
      popup.setBorder(BorderFactory.createLineBorder(Theme.palette().border));
      return popup;
    }

    @Override
    public void installUI(JComponent box) {
      super.installUI(box);
      // The box has the keyboard already.
      arrowButton.setFocusable(false);
      ((JComponent) comboBox.getRenderer()).setBorder(Theme.space(3, 6));
      ((JComponent) comboBox.getEditor().getEditorComponent()).setBorder(Theme.space(3, 6));
    }
  }

  /** A thumb without buttons. */
  public static final class ScrollBar extends BasicScrollBarUI {
    /** Makes the look of one scroll bar. */
    public static ComponentUI createUI(JComponent bar) {
      return new ScrollBar();
    }

    @Override
    protected JButton createDecreaseButton(int orientation) {
      JButton none = new JButton();
      none.setPreferredSize(new Dimension());
      none.setFocusable(false);
      return none;
    }

    @Override
    protected JButton createIncreaseButton(int orientation) {
      return createDecreaseButton(orientation);
    }

    @Override
    protected void paintThumb(Graphics g, JComponent bar, Rectangle thumb) {
      Palette palette = Theme.palette();
      box(g, thumb.x + 3, thumb.y + 3, thumb.width - 6, thumb.height - 6,
          isDragging || isThumbRollover() ? palette.faint : palette.border, null, 0);
    }
  }

  /** Tabs with a line below the chosen one. */
  public static final class Tabs extends BasicTabbedPaneUI {
    /** Makes the look of one set of tabs. */
    public static ComponentUI createUI(JComponent tabs) {
      return new Tabs();
    }

    @Override
    protected void paintTabBackground(
        Graphics g, int placement, int tab, int x, int y, int w, int h, boolean chosen) {
      Palette palette = Theme.palette();
      if (chosen) {
        g.setColor(tabPane.hasFocus() ? palette.selection : palette.surface);
        g.fillRect(x, y, w, h);
        g.setColor(palette.accent);
        g.fillRect(x + 4, y + h - 2, w - 8, 2);
      }
    }

    @Override
    protected void paintTabBorder(
        Graphics g, int placement, int tab, int x, int y, int w, int h, boolean chosen) {
      // The line below the chosen one is enough.
    }

    @Override
    protected void paintContentBorder(Graphics g, int placement, int chosen) {
      g.setColor(Theme.palette().line);
      g.fillRect(0, calculateTabAreaHeight(placement, runCount, maxTabHeight),
          tabPane.getWidth(), 1);
    }
  }
}
