package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Finding;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.ConcurrentModificationException;
import java.util.HashMap;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import java.util.function.IntUnaryOperator;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import javax.swing.DefaultComboBoxModel;
import javax.swing.JButton;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.Timer;
import net.miginfocom.swing.MigLayout;

/**
 * The outline as a picture beside the tree. The members are read in steps between which others can
 * read, and anew a moment after an edit, while the picture is seen.
 */
final class PicturePane extends JPanel {
  private static final long serialVersionUID = 1;
  private static final int STEP = 20_000;
  private static final int MOST_IN_LEGEND = 8;
  private static final String GENERATION = "Generation";
  private static final String FINDING = "Finding";

  private final transient Workspace workspace;
  private final PictureView view = new PictureView();
  private final JComboBox<String> size = new JComboBox<>(new String[] {"Members", "Leaves"});
  private final JComboBox<String> colour = new JComboBox<>(new String[] {GENERATION, FINDING});
  private final JButton up = new JButton("Zoom out");
  private final JLabel legend = new JLabel(" ");
  private final Timer pause = new Timer(400, event -> read());
  private boolean stale = true;
  private transient volatile Reading reading;

  PicturePane(Workspace workspace) {
    super(new MigLayout("insets 8 0 0 0, fill, hidemode 3",
        "12[][]16[][]16[]push[]12", "[][]8[grow,fill]"));
    this.workspace = workspace;
    pause.setRepeats(false);
    JButton export = new JButton("Export\u2026");
    Prompt.addField(this, "Size by", size);
    Prompt.addField(this, "Colour by", colour);
    add(up);
    add(export, "wrap");
    add(legend, "span, growx, wmin 0, wrap");
    add(view, "span, grow, pad 0 -12 0 12");
    size.addActionListener(event -> view.setByLeaves(size.getSelectedIndex() == 1));
    colour.addActionListener(event -> read());
    up.addActionListener(event -> zoom(view.root < 0 ? -1 : view.picture.parents[view.root]));
    up.setEnabled(false);
    export.addActionListener(event -> export());
    view.getAccessibleContext().setAccessibleName("Picture of the outline");
    view.addPropertyChangeListener("blocks", event -> readNames());
    view.addMouseListener(new MouseAdapter() {
      @Override
      public void mousePressed(MouseEvent event) {
        view.requestFocusInWindow();
        Picture.Block block = view.at(event.getX(), event.getY());
        if (block != null && event.getClickCount() == 1) {
          choose(block.first);
        } else if (block != null) {
          zoom(block.siblings > 1 ? view.picture.parents[block.first] : block.first);
        }
      }
    });
    Listen.onKey(view, "ENTER", () -> zoom(view.selected));
    Listen.onKey(view, "BACK_SPACE", up::doClick);
    bind("LEFT", at -> view.picture.parents[at]);
    bind("RIGHT", at -> at + 1);
    bind("DOWN", at -> at + view.picture.sizes[at]);
    bind("UP", at -> at - 1);
    Listen.onShowing(this, seen -> {
      if (stale) {
        read();
      }
    });
    workspace.selected.hear(this::mark);
    workspace.changed.hear(change -> {
      stale = true;
      pause.restart();
    });
  }

  private void bind(String key, IntUnaryOperator next) {
    Listen.onKey(view, key,
        () -> choose(view.selected < 0 ? 0 : next.applyAsInt(view.selected)));
  }

  private void choose(int member) {
    if (member >= 0 && member < view.picture.count) {
      int handle = view.picture.handles[member];
      workspace.read(() -> workspace.outline.read(new int[] {handle}, Details.NONE),
          workspace::select);
    }
  }

  private void zoom(int member) {
    view.zoom(member);
    up.setEnabled(view.root >= 0);
  }

  private void mark(List<Member> members) {
    view.select(members.isEmpty() ? -1 : view.picture.find(members.get(0).handle()));
  }

  // ---- Reading ----

  /** A picture that is being read, a step at a time. */
  private static final class Reading {
    final Picture picture = new Picture();
    /** The attribute dimension that gives the colours, null for none, and what it gives. */
    final String attribute;
    final List<String> numbers = new ArrayList<>();
    final List<String> attributeDimensions = new ArrayList<>();
    private Iterator<Member> dimensions;
    private Stream<Member> stream = Stream.empty();
    private Iterator<Member> members = stream.iterator();

    Reading(String attribute) {
      this.attribute = attribute;
    }

    /** Reads on; whether there is more. */
    boolean next(Outline outline) {
      if (dimensions == null) {
        List<Member> all = outline.dimensions();
        all.stream().filter(one -> one.category() == DimensionCategory.ATTRIBUTE)
            .forEach(one -> attributeDimensions.add(one.name()));
        dimensions = all.iterator();
      }
      for (int i = 0; i < STEP; i++) {
        while (!members.hasNext()) {
          if (!dimensions.hasNext()) {
            picture.finish();
            return false;
          }
          stream = outline.subtree(dimensions.next(),
              attribute == null ? Details.NONE : Details.NONE.attributes());
          members = stream.iterator();
        }
        Member member = members.next();
        picture.add(member, attribute == null ? 0 : number(member));
      }
      return true;
    }

    private int number(Member member) {
      for (Attribute one : member.attributes()) {
        if (one.dimension().equals(attribute) && !member.isDimension()) {
          if (!numbers.contains(one.name()) && numbers.size() < Byte.MAX_VALUE - 1) {
            numbers.add(one.name());
          }
          return 1 + numbers.indexOf(one.name());
        }
      }
      return 0;
    }
  }

  private void read() {
    if (isShowing()) {
      stale = false;
      Object by = colour.getSelectedItem();
      reading =
          new Reading(by.equals(GENERATION) || by.equals(FINDING) ? null : by.toString());
      legend.setText("Reading the outline \u2026");
      readOn(reading);
    }
  }

  private void readOn(Reading begun) {
    workspace.read(() -> {
      try {
        if (begun == reading) {
          return begun.next(workspace.outline);
        }
      } catch (ConcurrentModificationException e) {
        // Edited in between; the edit has it read anew.
      }
      begun.stream.close();
      return null;
    }, more -> {
      if (begun != reading || more == null) {
        return;
      }
      if (more) {
        readOn(begun);
      } else if (colour.getSelectedItem().equals(FINDING)) {
        workspace.run("Verifying", () -> workspace.outline.verify(), found -> {
          begun.picture.mark(
              found.stream().map(Finding::handle).collect(Collectors.toSet()));
          show(begun, PictureView.Colours.FINDINGS, String.format(
              "%,d findings in red; what lies above them is pale", found.size()));
        });
      } else {
        show(begun, begun.attribute == null ? PictureView.Colours.GENERATIONS
            : PictureView.Colours.ATTRIBUTES,
            String.format("%,d members, a column a generation", begun.picture.count));
      }
    });
  }

  private void show(Reading read, PictureView.Colours colours, String sentence) {
    DefaultComboBoxModel<String> offered =
        new DefaultComboBoxModel<>(new String[] {GENERATION, FINDING});
    read.attributeDimensions.forEach(offered::addElement);
    if (offered.getIndexOf(colour.getSelectedItem()) >= 0) {
      offered.setSelectedItem(colour.getSelectedItem());
    }
    colour.setModel(offered);
    view.names.clear();
    view.show(read.picture, colours);
    up.setEnabled(view.root >= 0);
    mark(workspace.selection());
    StringBuilder attributes = new StringBuilder("<html><nobr>");
    for (int i = 0; i < Math.min(MOST_IN_LEGEND, read.numbers.size()); i++) {
      attributes.append(String.format("<font color='#%06x'>\u25a0</font> %s &nbsp; ",
          view.legend(i + 1).getRGB() & 0xffffff, PictureView.escaped(read.numbers.get(i))));
    }
    legend.setText(read.attribute == null ? sentence : attributes.toString());
  }

  private void readNames() {
    int[] handles = view.nameless();
    if (handles.length > 0) {
      workspace.read(() -> {
        Map<Integer, String> names = new HashMap<>();
        try {
          for (Member member : workspace.outline.read(handles, Details.NONE)) {
            names.put(member.handle(), member.name());
          }
        } catch (OutlineException e) {
          // One was deleted since; the picture is about to be read anew.
        }
        return names;
      }, names -> {
        view.names.putAll(names);
        view.repaint();
      });
    }
  }

  private void export() {
    File file =
        Prompt.file(this, "Export the picture as SVG or PNG", workspace.name() + ".svg");
    if (file == null) {
      return;
    }
    try {
      view.save(file.toPath());
      legend.setText("The picture is now in " + file + ".");
    } catch (IOException e) {
      workspace.fail(e);
    }
  }
}
