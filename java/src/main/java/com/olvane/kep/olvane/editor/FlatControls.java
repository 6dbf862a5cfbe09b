package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Dimension;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.Rectangle;
import java.awt.RenderingHints;
import javax.swing.BorderFactory;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.plaf.ComponentUI;
import javax.swing.plaf.basic.BasicComboBoxUI;
import javax.swing.plaf.basic.BasicComboPopup;
import javax.swing.plaf.basic.BasicScrollBarUI;
import javax.swing.plaf.basic.BasicTabbedPaneUI;
import javax.swing.plaf.basic.ComboPopup;

/** The looks of the controls that are more than a colour and a border. */
final class FlatControls {
  private FlatControls() {}

  /** A box with a list: no raised button, no coloured value. */
  public static final class ComboBox extends BasicComboBoxUI {
    private static final int ROW_HEIGHT = 22;

    /** Makes the look of one box. */
    public static ComponentUI createUI(JComponent box) {
      return new ComboBox();
    }

    @Override
    protected JButton createArrowButton() {
      JButton button = new JButton(FlatIcons.arrow(12, true, Theme.palette().text));
      button.setBorder(Theme.space(0, 0));
      button.setContentAreaFilled(false);
      button.setFocusable(false);
      return button;
    }

    @Override
    protected ComboPopup createPopup() {
      BasicComboPopup popup = new BasicComboPopup(comboBox) {
        private static final long serialVersionUID = 1;

        @Override
        protected int getPopupHeightForRowCount(int most) {
          return Math.min(most, comboBox.getItemCount()) * ROW_HEIGHT + 2;
        }
      };
      popup.setBorder(BorderFactory.createLineBorder(Theme.palette().border));
      popup.getList().setFixedCellHeight(ROW_HEIGHT);
      return popup;
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
}
