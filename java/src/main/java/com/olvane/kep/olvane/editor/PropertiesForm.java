package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Code;
import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.CurrencyConversion;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Share;
import com.olvane.kep.olvane.outline.TimeBalance;
import com.olvane.kep.olvane.outline.TimeBalanceSkip;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.JCheckBox;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import net.miginfocom.swing.MigLayout;

/** The name of a member, and its properties in words. */
final class PropertiesForm extends JPanel implements DetailsPane.Part {
  private static final long serialVersionUID = 1;

  private final transient Workspace workspace;
  private final transient List<Consumer<List<Member>>> readers = new ArrayList<>();
  private final Hint.Field name = new Hint.Field(10);
  private final Hint.Field currency = new Hint.Field(10);
  private final transient TextCommit nameCommit;
  private final transient TextCommit currencyCommit;
  private transient List<Member> members = Collections.emptyList();
  private boolean showing;

  PropertiesForm(Workspace workspace) {
    super(new MigLayout("insets 0, fillx, wrap 2, hidemode 3", "[][grow,fill,:100:]"));
    this.workspace = workspace;
    JLabel nameComplaint = new JLabel();
    addField("Name", name);
    add(nameComplaint, "skip, wmin 0");
    nameCommit = new TextCommit(name, nameComplaint,
        TextCommit.accordingTo(com.olvane.kep.olvane.outline.NewMember::new),
        text -> workspace.edit(MemberEdits.rename(members.get(0), text)));
    addCodes("Consolidation", Consolidation.values(), Member::consolidation,
        Member::consolidationCode, (c, code) -> c.consolidation((Consolidation) code));
    addCodes("Storage", Share.values(), Member::share, Member::shareCode,
        (c, code) -> c.share((Share) code));
    addCodes("Time balance", TimeBalance.values(), Member::timeBalance, Member::timeBalanceCode,
        (c, code) -> c.timeBalance((TimeBalance) code));
    addCodes("Passes over", TimeBalanceSkip.values(), Member::timeBalanceSkip,
        Member::timeBalanceSkipCode, (c, code) -> c.timeBalanceSkip((TimeBalanceSkip) code));
    addCodes("Currency", CurrencyConversion.values(), Member::conversion, Member::conversionCode,
        (c, code) -> c.conversion((CurrencyConversion) code));
    JLabel currencyComplaint = new JLabel();
    addField("Currency member", currency);
    add(currencyComplaint, "skip, wmin 0");
    currencyCommit = new TextCommit(currency, currencyComplaint,
        TextCommit.accordingTo(text -> new Changes().currencyMember(text)),
        text -> change("Set the currency member", c -> c.currencyMember(text)));
    addFlag("Calculated in two passes", Member::isTwoPass, Changes::twoPass);
    addFlag("Variance as for an expense", Member::isExpense, Changes::expense);
  }

  private void addField(String label, Hint.Field field) {
    JLabel text = new JLabel(label);
    text.setLabelFor(field);
    field.setName(label);
    add(text);
    add(field);
  }

  private void change(String verb, Consumer<Changes> set) {
    Changes changes = new Changes();
    set.accept(changes);
    workspace.edit(MemberEdits.change(
        MemberEdits.title(verb + " of", members), members, member -> changes));
  }

  private void addCodes(String label, Code[] constants, Function<Member, Code> value,
      Function<Member, Short> number, BiConsumer<Changes, Code> set) {
    JComboBox<Object> box = new JComboBox<>();
    box.setName(label);
    box.setMaximumRowCount(12);
    for (Code constant : constants) {
      if (constant.code() >= 0) {
        box.addItem(new Choice(constant));
      }
    }
    JLabel text = new JLabel(label);
    text.setLabelFor(box);
    add(text);
    add(box, "wmin 0");
    box.addActionListener(event -> {
      Object chosen = box.getSelectedItem();
      if (!showing && chosen instanceof Choice) {
        Code code = ((Choice) chosen).code;
        change("Set the " + label.toLowerCase(java.util.Locale.ROOT), c -> set.accept(c, code));
      }
    });
    int constantsShown = box.getItemCount();
    readers.add(now -> {
      while (box.getItemCount() > constantsShown) {
        box.removeItemAt(constantsShown);
      }
      Short code = DetailsPane.common(now, number);
      Object shown = null;
      if (code == null) {
        box.addItem(Hint.DIFFERENT);
        shown = Hint.DIFFERENT;
      } else if (value.apply(now.get(0)).code() < 0) {
        shown = "code " + code;
        box.addItem(shown);
      } else {
        shown = new Choice(value.apply(now.get(0)));
      }
      box.setSelectedItem(shown);
    });
  }

  private void addFlag(
      String label, Function<Member, Boolean> value, BiConsumer<Changes, Boolean> set) {
    JCheckBox box = new JCheckBox(label);
    box.setName(label);
    add(box, "skip, wmin 0");
    box.addActionListener(event -> {
      boolean chosen = box.isSelected();
      change((chosen ? "Set '" : "Clear '") + label + "'", c -> set.accept(c, chosen));
    });
    readers.add(now -> {
      Boolean common = DetailsPane.common(now, value);
      box.putClientProperty(FlatIcons.MIXED, common == null);
      box.setSelected(Boolean.TRUE.equals(common));
    });
  }

  @Override
  public void show(List<Member> now, boolean again) {
    members = now;
    showing = true;
    readers.forEach(reader -> reader.accept(now));
    showing = false;
    name.setEnabled(now.size() == 1);
    DetailsPane.show(nameCommit, name, now.size() == 1 ? now.get(0).name() : null, again);
    DetailsPane.show(
        currencyCommit, currency, DetailsPane.common(now, Member::currencyMember), again);
  }

  @Override
  public void flush() {
    nameCommit.flush();
    currencyCommit.flush();
  }

  /** A constant, shown in words. */
  private static final class Choice {
    final Code code;

    Choice(Code code) {
      this.code = code;
    }

    @Override
    public boolean equals(Object other) {
      return other instanceof Choice && ((Choice) other).code == code;
    }

    @Override
    public int hashCode() {
      return code.hashCode();
    }

    @Override
    public String toString() {
      return code.words();
    }
  }
}
