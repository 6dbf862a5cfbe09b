package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Search;
import com.olvane.kep.olvane.outline.SearchRun;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.stream.Collectors;
import javax.swing.text.BadLocationException;
import javax.swing.text.JTextComponent;
import org.fife.ui.autocomplete.AutoCompletion;
import org.fife.ui.autocomplete.BasicCompletion;
import org.fife.ui.autocomplete.Completion;
import org.fife.ui.autocomplete.CompletionProviderBase;
import org.fife.ui.autocomplete.ParameterizedCompletion;

/**
 * Completes names of members in a formula. They are searched on the work thread; the list opens
 * when they have come.
 */
final class MemberCompletion extends CompletionProviderBase {
  private static final int MOST = 50;
  private static final long MOST_NANOS = 300_000_000;

  private final Workspace workspace;
  private final AutoCompletion completion;
  private String foundFor = "";
  private List<String> found = Collections.emptyList();

  private MemberCompletion(Workspace workspace) {
    this.workspace = workspace;
    this.completion = new AutoCompletion(this);
  }

  /** Lets Ctrl+Space complete names in a text. */
  static void install(JTextComponent text, Workspace workspace) {
    MemberCompletion provider = new MemberCompletion(workspace);
    provider.completion.setAutoCompleteSingleChoices(true);
    provider.completion.install(text);
  }

  /** Where the name begins that the caret stands in or behind; a quote belongs to it. */
  static int nameStart(String line) {
    int quotes = 0;
    for (int i = 0; i < line.length(); i++) {
      quotes += line.charAt(i) == '"' ? 1 : 0;
    }
    if (quotes % 2 == 1) {
      return line.lastIndexOf('"');
    }
    int start = line.length();
    while (start > 0 && (Character.isLetterOrDigit(line.charAt(start - 1))
        || "_.$#".indexOf(line.charAt(start - 1)) >= 0)) {
      start--;
    }
    return start;
  }

  /** A name as a formula has it: in quotes unless it is one plain word. */
  static String inFormula(String name) {
    boolean plain = !name.isEmpty() && Character.isLetter(name.charAt(0))
        && name.chars().allMatch(c -> Character.isLetterOrDigit(c) || c == '_');
    return plain ? name : '"' + name + '"';
  }

  @Override
  public String getAlreadyEnteredText(JTextComponent text) {
    try {
      int caret = text.getCaretPosition();
      int line = text.getDocument().getDefaultRootElement().getElementIndex(caret);
      int start = text.getDocument().getDefaultRootElement().getElement(line).getStartOffset();
      String before = text.getText(start, caret - start);
      return before.substring(nameStart(before));
    } catch (BadLocationException e) {
      return "";
    }
  }

  @Override
  protected List<Completion> getCompletionsImpl(JTextComponent text) {
    String entered = getAlreadyEnteredText(text);
    String prefix = entered.startsWith("\"") ? entered.substring(1) : entered;
    if (!prefix.equals(foundFor)) {
      if (!prefix.isEmpty()) {
        search(prefix, text);
      }
      return Collections.emptyList();
    }
    return found.stream().map(name -> new BasicCompletion(this, inFormula(name)))
        .collect(Collectors.toList());
  }

  private void search(String prefix, JTextComponent text) {
    workspace.read(() -> find(prefix), names -> {
      foundFor = prefix;
      found = names;
      if (!names.isEmpty() && text.isFocusOwner()) {
        completion.doCompletion();
      }
    });
  }

  private List<String> find(String prefix) {
    Set<String> names = new LinkedHashSet<>();
    SearchRun run = workspace.outline().search(new Search(prefix), Details.NONE);
    long end = System.nanoTime() + MOST_NANOS;
    String small = prefix.toLowerCase(Locale.ROOT);
    while (!run.isFinished() && names.size() < MOST && System.nanoTime() < end) {
      for (Member member : run.next()) {
        if (member.name().toLowerCase(Locale.ROOT).startsWith(small)) {
          names.add(member.name());
        }
      }
    }
    return new ArrayList<>(names).subList(0, Math.min(MOST, names.size()));
  }

  @Override
  public List<Completion> getCompletionsAt(JTextComponent text, java.awt.Point at) {
    return null;
  }

  @Override
  public List<ParameterizedCompletion> getParameterizedCompletions(JTextComponent text) {
    return null;
  }
}
