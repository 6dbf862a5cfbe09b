package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Finding;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.awt.BorderLayout;
import java.awt.FlowLayout;
import java.awt.event.HierarchyEvent;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.ConcurrentModificationException;
import java.util.HashMap;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import javax.swing.BorderFactory;
import javax.swing.JButton;
import javax.swing.JComboBox;
import javax.swing.JFileChooser;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.KeyStroke;
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
  private static final String[] ALWAYS = {"Generation", "Finding"};

  private final transient Workspace workspace;
  private final PictureView view = new PictureView();
  private final JComboBox<String> size = new JComboBox<>(new String[] {"Members", "Leaves"});
  private final JComboBox<String> colour = new JComboBox<>(ALWAYS);
  private final JButton up = new JButton("Zoom out");
  private final JPanel legend = new JPanel(new FlowLayout(FlowLayout.LEADING, 12, 0));
  private final Timer pause = new Timer(400, event -> read());
  private boolean stale = true;
  private boolean listing;
  private transient Reading reading;

  PicturePane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    pause.setRepeats(false);
    JPanel bar = new JPanel(new MigLayout("insets 8 12 8 12, fillx", "[][]16[][]16[]push[]"));
    addChoice(bar, "Size by", size);
    addChoice(bar, "Colour by", colour);
    JButton export = new JButton("Export\u2026");
    bar.add(up);
    bar.add(export, "wrap");
    bar.add(legend, "span, growx, wmin 0, gapleft 0, pad 0 -12 0 0");
    say(" ");
    add(bar, BorderLayout.NORTH);
    add(view);
    size.addActionListener(event -> view.setByLeaves(size.getSelectedIndex() == 1));
    colour.addActionListener(event -> {
      if (!listing) {
        read();
      }
    });
    up.addActionListener(event -> zoom(view.root() < 0 ? -1 : view.picture().parent(view.root())));
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
          zoom(block.siblings > 1 ? view.picture().parent(block.first) : block.first);
        }
      }
    });
    bind("ENTER", () -> zoom(view.selectedMember()));
    bind("BACK_SPACE", up::doClick);
    bind("LEFT", () -> choose(view.picture().parent(view.selectedMember())));
    bind("RIGHT", () -> choose(view.selectedMember() + 1));
    bind("DOWN", () -> choose(
        view.selectedMember() + view.picture().size(view.selectedMember())));
    bind("UP", () -> choose(view.selectedMember() - 1));
    addHierarchyListener(event -> {
      if ((event.getChangeFlags() & HierarchyEvent.SHOWING_CHANGED) != 0 && stale) {
        read();
      }
    });
    workspace.selected.hear(this::selected);
    workspace.changed.hear(this::changed);
  }

  private static void addChoice(JPanel bar, String text, JComboBox<String> box) {
    JLabel label = new JLabel(text);
    label.setLabelFor(box);
    box.setName(text);
    bar.add(label);
    bar.add(box);
  }

  private void bind(String key, Runnable action) {
    view.registerKeyboardAction(event -> {
      if (view.selectedMember() >= 0) {
        action.run();
      } else {
        choose(0);
      }
    }, KeyStroke.getKeyStroke(key), WHEN_FOCUSED);
  }

  private void choose(int member) {
    if (member >= 0 && member < view.picture().count()) {
      int handle = view.picture().handle(member);
      workspace.read(() -> workspace.outline.read(new int[] {handle}, Details.NONE),
          workspace::select);
    }
  }

  private void zoom(int member) {
    view.zoom(member);
    up.setEnabled(view.root() >= 0);
  }

  private void selected(List<Member> members) {
    view.select(members.isEmpty() ? -1 : view.picture().find(members.get(0).handle()));
  }

  private void changed(OutlineChange change) {
    stale = true;
    pause.restart();
  }

  // ---- Reading ----

  /** A picture that is being read, a step at a time. */
  private final class Reading {
    private final Picture picture = new Picture();
    private final String attribute;
    private final List<String> numbers = new ArrayList<>();
    private final List<String> attributeDimensions = new ArrayList<>();
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
          Details details = attribute == null ? Details.NONE : Details.NONE.attributes();
          stream.close();
          stream = outline.subtree(dimensions.next(), details);
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
    if (!isShowing()) {
      return;
    }
    stale = false;
    boolean byAttribute = colour.getSelectedIndex() >= ALWAYS.length;
    Reading begun = new Reading(byAttribute ? (String) colour.getSelectedItem() : null);
    reading = begun;
    say("Reading the outline \u2026");
    readOn(begun);
  }

  private void readOn(Reading begun) {
    workspace.read(() -> {
      try {
        return begun.next(workspace.outline);
      } catch (ConcurrentModificationException e) {
        return null;  // edited in between; the edit has it read anew
      }
    }, more -> {
      if (begun != reading || more == null) {
        return;
      }
      if (more) {
        readOn(begun);
      } else if (colour.getSelectedIndex() == 1) {
        workspace.run("Verifying", () -> workspace.outline.verify(), found -> {
          begun.picture.mark(
              found.stream().map(Finding::handle).collect(Collectors.toSet()));
          show(begun, found.size());
        });
      } else {
        show(begun, 0);
      }
    });
  }

  private void show(Reading read, int findings) {
    listing = true;
    Object chosen = colour.getSelectedItem();
    colour.removeAllItems();
    Arrays.asList(ALWAYS).forEach(colour::addItem);
    read.attributeDimensions.forEach(colour::addItem);
    colour.setSelectedItem(chosen);
    listing = false;
    boolean byFinding = colour.getSelectedIndex() == 1;
    view.forgetNames();
    view.show(read.picture, byFinding ? PictureView.Colours.FINDINGS
        : read.attribute != null ? PictureView.Colours.ATTRIBUTES
            : PictureView.Colours.GENERATIONS);
    up.setEnabled(view.root() >= 0);
    selected(workspace.selection());
    if (byFinding) {
      say(String.format("%,d findings in red; what lies above them is pale", findings));
    } else if (read.attribute == null) {
      say(String.format("%,d members, a column a generation", read.picture.count()));
    } else {
      legend.removeAll();
      for (int i = 0; i < Math.min(MOST_IN_LEGEND, read.numbers.size()); i++) {
        JLabel label = new JLabel(read.numbers.get(i));
        label.setBorder(BorderFactory.createCompoundBorder(
            BorderFactory.createMatteBorder(0, 11, 0, 0, view.legend(i + 1)), Theme.space(0, 6)));
        legend.add(label);
      }
    }
    legend.revalidate();
  }

  private void say(String sentence) {
    legend.removeAll();
    JLabel label = new JLabel(sentence);
    label.setEnabled(false);
    legend.add(label);
    legend.revalidate();
    legend.repaint();
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
      }, view::setNames);
    }
  }

  private void export() {
    JFileChooser chooser = new JFileChooser();
    chooser.setDialogTitle("Export the picture as SVG or PNG");
    chooser.setSelectedFile(new File(workspace.name() + ".svg"));
    if (chooser.showSaveDialog(this) != JFileChooser.APPROVE_OPTION) {
      return;
    }
    File file = chooser.getSelectedFile();
    try {
      if (file.getName().toLowerCase(java.util.Locale.ROOT).endsWith(".png")) {
        view.savePng(file.toPath());
      } else {
        view.saveSvg(file.toPath());
      }
      say("The picture is now in " + file + ".");
    } catch (IOException e) {
      workspace.fail(e);
    }
  }
}
