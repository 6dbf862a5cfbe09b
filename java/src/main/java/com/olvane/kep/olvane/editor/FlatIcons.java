package com.olvane.kep.olvane.editor;

import java.awt.BasicStroke;
import java.awt.Color;
import java.awt.Component;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.RenderingHints;
import java.awt.geom.Path2D;
import javax.swing.AbstractButton;
import javax.swing.Icon;
import javax.swing.UIDefaults;
import javax.swing.plaf.UIResource;

/** The small pictures of controls, drawn as lines so that they are sharp at any scale. */
final class FlatIcons {
  private FlatIcons() {}

  /** What draws an icon, with smooth edges, in a square from 0 to its size. */
  private interface Drawing {
    void draw(Graphics2D g, Component on);
  }

  /** An icon of a look, which goes with it. */
  private static final class Drawn implements Icon, UIResource {
    private final int size;
    private final Drawing drawing;

    Drawn(int size, Drawing drawing) {
      this.size = size;
      this.drawing = drawing;
    }

    @Override
    public int getIconWidth() {
      return size;
    }

    @Override
    public int getIconHeight() {
      return size;
    }

    @Override
    public void paintIcon(Component on, Graphics graphics, int x, int y) {
      Graphics2D g = (Graphics2D) graphics.create();
      g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
      g.setRenderingHint(RenderingHints.KEY_STROKE_CONTROL, RenderingHints.VALUE_STROKE_PURE);
      g.translate(x, y);
      drawing.draw(g, on);
      g.dispose();
    }
  }

  static void putAll(UIDefaults defaults, Palette palette) {
    defaults.put("Tree.expandedIcon", arrow(12, true, palette.faint));
    defaults.put("Tree.collapsedIcon", arrow(12, false, palette.faint));
    defaults.put("CheckBox.icon", new Drawn(16, (g, on) -> box(g, (AbstractButton) on, palette)));
    Icon tick = new Drawn(12, (g, on) -> {
      if (((AbstractButton) on).isSelected()) {
        g.setColor(palette.text);
        line(g, 1.6f, 2, 6.5f, 5, 9.5f, 10, 3);
      }
    });
    defaults.put("CheckBoxMenuItem.checkIcon", tick);
    defaults.put("RadioButtonMenuItem.checkIcon", tick);
    defaults.put("Menu.arrowIcon", arrow(10, false, palette.faint));
    // A sentence needs no picture of a triangle.
    for (String kind : new String[] {"error", "warning", "information", "question"}) {
      defaults.put("OptionPane." + kind + "Icon", null);
    }
  }

  private static void line(Graphics2D g, float thick, float... points) {
    g.setStroke(new BasicStroke(thick, BasicStroke.CAP_ROUND, BasicStroke.JOIN_ROUND));
    Path2D path = new Path2D.Float();
    path.moveTo(points[0], points[1]);
    for (int i = 2; i < points.length; i += 2) {
      path.lineTo(points[i], points[i + 1]);
    }
    g.draw(path);
  }

  /** A square of a colour. */
  static Icon swatch(Color colour) {
    return new Drawn(11, (g, on) -> {
      g.setColor(colour);
      g.fillRect(0, 0, 11, 11);
    });
  }

  /** An angle that points down, or to where reading goes. */
  static Icon arrow(int size, boolean down, Color colour) {
    return new Drawn(size, (g, on) -> {
      g.setColor(colour);
      float a = size * 0.3f;
      float b = size * 0.5f;
      float c = size * 0.7f;
      if (down) {
        line(g, 1.5f, a - 1, b - 1.5f, b, c - 1, c + 1, b - 1.5f);
      } else if (on.getComponentOrientation().isLeftToRight()) {
        line(g, 1.5f, b - 1.5f, a - 1, c - 1, b, b - 1.5f, c + 1);
      } else {
        line(g, 1.5f, b + 1.5f, a - 1, a + 1, b, b + 1.5f, c + 1);
      }
    });
  }

  private static void box(Graphics2D g, AbstractButton button, Palette palette) {
    boolean chosen = button.isSelected();
    boolean filled = chosen && button.isEnabled();
    FlatBorder.paint(g, 1, 1, 14, 14, filled ? palette.accent : palette.content,
        button.isFocusOwner() ? filled ? palette.text : palette.accent
            : filled ? palette.accent : button.isEnabled() ? palette.border : palette.line,
        button.isFocusOwner() ? 2 : 1);
    if (chosen) {
      g.setColor(filled ? palette.onAccent : palette.faint);
      line(g, 1.8f, 4.5f, 8.5f, 7, 11, 11.5f, 5.5f);
    }
  }
}
