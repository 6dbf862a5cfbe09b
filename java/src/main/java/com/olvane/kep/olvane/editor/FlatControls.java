package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.Insets;
import java.awt.Rectangle;
import java.awt.RenderingHints;
import javax.swing.AbstractButton;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.JSeparator;
import javax.swing.JSplitPane;
import javax.swing.SwingConstants;
import javax.swing.border.Border;
import javax.swing.plaf.ComponentUI;
import javax.swing.plaf.basic.BasicComboBoxUI;
import javax.swing.plaf.basic.BasicScrollBarUI;
import javax.swing.plaf.basic.BasicSeparatorUI;
import javax.swing.plaf.basic.BasicSpinnerUI;
import javax.swing.plaf.basic.BasicSplitPaneDivider;
import javax.swing.plaf.basic.BasicSplitPaneUI;
import javax.swing.plaf.basic.BasicTabbedPaneUI;
import javax.swing.plaf.basic.BasicToolBarUI;

/** The looks of the controls that are more than a colour and a border. */
final class FlatControls {
  private FlatControls() {}

  private static JButton arrowButton(boolean up) {
    JButton button = new JButton() {
      private static final long serialVersionUID = 1;

      @Override
      protected void paintComponent(Graphics g) {
        Graphics2D turned = (Graphics2D) g.create();
        if (up) {
          turned.translate(getWidth(), getHeight());
          turned.rotate(Math.PI);
        }
        FlatIcons.arrow(12, true, isEnabled() ? Theme.palette().text : Theme.palette().faint)
            .paintIcon(this, turned, (getWidth() - 12) / 2, (getHeight() - 12) / 2);
        turned.dispose();
      }
    };
    button.setBorder(Theme.space(0, 0));
    button.setFocusable(false);
    button.setOpaque(false);
    return button;
  }

  /** A box with a list: no raised button, no coloured value. */
  public static final class ComboBox extends BasicComboBoxUI {
    /** Makes the look of one box. */
    public static ComponentUI createUI(JComponent box) {
      return new ComboBox();
    }

    @Override
    protected JButton createArrowButton() {
      return arrowButton(false);
    }

    @Override
    public void paintCurrentValue(Graphics g, Rectangle bounds, boolean hasFocus) {
      super.paintCurrentValue(g, bounds, false);
    }

    @Override
    public void paintCurrentValueBackground(Graphics g, Rectangle bounds, boolean hasFocus) {
      // The box is filled already.
    }

    @Override
    public Dimension getMinimumSize(JComponent box) {
      Dimension size = super.getMinimumSize(box);
      return new Dimension(size.width, Math.max(size.height, 26));
    }
  }

  /** A number with two arrows. */
  public static final class Spinner extends BasicSpinnerUI {
    /** Makes the look of one spinner. */
    public static ComponentUI createUI(JComponent spinner) {
      return new Spinner();
    }

    private static Component arrow(JButton button, String name) {
      button.setName(name);
      button.setPreferredSize(new Dimension(18, 9));
      return button;
    }

    @Override
    protected Component createNextButton() {
      Component button = arrow(arrowButton(true), "Spinner.nextButton");
      installNextButtonListeners(button);
      return button;
    }

    @Override
    protected Component createPreviousButton() {
      Component button = arrow(arrowButton(false), "Spinner.previousButton");
      installPreviousButtonListeners(button);
      return button;
    }
  }

  /** A thumb without buttons. */
  public static final class ScrollBar extends BasicScrollBarUI {
    /** Makes the look of one scroll bar. */
    public static ComponentUI createUI(JComponent bar) {
      return new ScrollBar();
    }

    private static JButton nothing() {
      JButton button = new JButton();
      Dimension none = new Dimension(0, 0);
      button.setPreferredSize(none);
      button.setMinimumSize(none);
      button.setMaximumSize(none);
      button.setFocusable(false);
      return button;
    }

    @Override
    protected JButton createDecreaseButton(int orientation) {
      return nothing();
    }

    @Override
    protected JButton createIncreaseButton(int orientation) {
      return nothing();
    }

    @Override
    protected Dimension getMinimumThumbSize() {
      return new Dimension(13, 24);
    }

    @Override
    protected void paintTrack(Graphics g, JComponent bar, Rectangle track) {
      g.setColor(Theme.palette().surface);
      g.fillRect(track.x, track.y, track.width, track.height);
    }

    @Override
    protected void paintThumb(Graphics g, JComponent bar, Rectangle thumb) {
      if (thumb.isEmpty() || !bar.isEnabled()) {
        return;
      }
      Palette palette = Theme.palette();
      Color face = isDragging || isThumbRollover() ? palette.faint : palette.border;
      Graphics2D smooth = (Graphics2D) g.create();
      smooth.setRenderingHint(
          RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
      smooth.setColor(face);
      smooth.fillRoundRect(
          thumb.x + 3, thumb.y + 3, Math.max(7, thumb.width - 6), Math.max(7, thumb.height - 6),
          7, 7);
      smooth.dispose();
    }
  }

  /** Tabs with a line below the chosen one. */
  public static final class Tabs extends BasicTabbedPaneUI {
    /** Makes the look of one set of tabs. */
    public static ComponentUI createUI(JComponent tabs) {
      return new Tabs();
    }

    @Override
    protected int getTabLabelShiftY(int placement, int tab, boolean chosen) {
      return 0;
    }

    @Override
    protected void paintTabBackground(
        Graphics g, int placement, int tab, int x, int y, int w, int h, boolean chosen) {
      Palette palette = Theme.palette();
      if (tab == getRolloverTab() && !chosen) {
        g.setColor(palette.hover);
        g.fillRect(x, y, w, h);
      }
      if (chosen) {
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
    protected void paintFocusIndicator(Graphics g, int placement, Rectangle[] all, int tab,
        Rectangle icon, Rectangle text, boolean chosen) {
      if (tabPane.hasFocus() && chosen) {
        FlatBorder.paint(g, all[tab].x + 2, all[tab].y + 2, all[tab].width - 4,
            all[tab].height - 5, null, Theme.palette().accent, 1f);
      }
    }

    @Override
    protected void paintContentBorder(Graphics g, int placement, int chosen) {
      int top = calculateTabAreaHeight(placement, runCount, maxTabHeight);
      g.setColor(Theme.palette().line);
      g.fillRect(0, top, tabPane.getWidth(), 1);
    }
  }

  /** A tool bar without bumps. */
  public static final class ToolBar extends BasicToolBarUI {
    /** Makes the look of one tool bar. */
    public static ComponentUI createUI(JComponent bar) {
      return new ToolBar();
    }

    @Override
    protected Border createRolloverBorder() {
      return new FlatBorder(new Insets(5, 8, 5, 8));
    }

    @Override
    protected Border createNonRolloverBorder() {
      return createRolloverBorder();
    }

    @Override
    protected Border getRolloverBorder(AbstractButton button) {
      return createRolloverBorder();
    }

    @Override
    protected Border getNonRolloverBorder(AbstractButton button) {
      return createRolloverBorder();
    }
  }

  /** Two parts with a thin line between them. */
  public static final class SplitPane extends BasicSplitPaneUI {
    /** Makes the look of one split pane. */
    public static ComponentUI createUI(JComponent pane) {
      return new SplitPane();
    }

    @Override
    public BasicSplitPaneDivider createDefaultDivider() {
      return new BasicSplitPaneDivider(this) {
        private static final long serialVersionUID = 1;

        @Override
        public void paint(Graphics g) {
          g.setColor(Theme.palette().surface);
          g.fillRect(0, 0, getWidth(), getHeight());
          g.setColor(Theme.palette().line);
          if (orientation == JSplitPane.HORIZONTAL_SPLIT) {
            g.fillRect(getWidth() / 2, 0, 1, getHeight());
          } else {
            g.fillRect(0, getHeight() / 2, getWidth(), 1);
          }
        }
      };
    }
  }

  /** A line between things. */
  public static final class Line extends BasicSeparatorUI {
    /** Makes the look of one line. */
    public static ComponentUI createUI(JComponent line) {
      return new Line();
    }

    @Override
    public void paint(Graphics g, JComponent line) {
      g.setColor(Theme.palette().line);
      if (((JSeparator) line).getOrientation() == SwingConstants.VERTICAL) {
        g.fillRect(line.getWidth() / 2, 3, 1, line.getHeight() - 6);
      } else {
        g.fillRect(0, line.getHeight() / 2, line.getWidth(), 1);
      }
    }

    @Override
    public Dimension getPreferredSize(JComponent line) {
      return ((JSeparator) line).getOrientation() == SwingConstants.VERTICAL
          ? new Dimension(9, 0) : new Dimension(0, 9);
    }

    @Override
    public Dimension getMaximumSize(JComponent line) {
      return ((JSeparator) line).getOrientation() == SwingConstants.VERTICAL
          ? new Dimension(9, Short.MAX_VALUE) : new Dimension(Short.MAX_VALUE, 9);
    }
  }
}
