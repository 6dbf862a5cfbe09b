package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Search;
import com.olvane.kep.olvane.outline.SearchRun;
import java.util.ArrayList;
import java.util.Collections;
import java.util.Comparator;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import javax.swing.text.JTextComponent;
import org.fife.ui.autocomplete.AutoCompletion;
import org.fife.ui.autocomplete.BasicCompletion;
import org.fife.ui.autocomplete.Completion;
import org.fife.ui.autocomplete.DefaultCompletionProvider;

/**
 * Completes names of members in a formula. They are searched on the work thread; the list opens
 * when they have come.
 */
final class MemberCompletion extends DefaultCompletionProvider {
  private static final int MOST = 50;
  private static final long MOST_NANOS = 300_000_000;
  /** The name that a line ends in: behind an open quote, or a word. */
  private static final Pattern LAST_NAME =
      Pattern.compile("^(?:[^\"]*\"[^\"]*\")*[^\"]*?(\"[^\"]*|[\\p{L}\\p{N}_.$#]*)$");

  private final Workspace workspace;
  private final AutoCompletion completion = new AutoCompletion(this);
  private String foundFor = "";
  private List<String> found = Collections.emptyList();

  /** Lets Ctrl+Space complete names in a text. */
  MemberCompletion(JTextComponent text, Workspace workspace) {
    this.workspace = workspace;
    completion.install(text);
  }

  /** The name that a text ends in, with the quote that it begins with. */
  static String lastName(String text) {
    Matcher name = LAST_NAME.matcher(text);
    return name.matches() ? name.group(1) : "";
  }

  /** A name as a formula has it: in quotes unless it is one plain word. */
  static String inFormula(String name) {
    return name.matches("\\p{L}[\\p{L}\\p{N}_]*") ? name : '"' + name + '"';
  }

  @Override
  public String getAlreadyEnteredText(JTextComponent text) {
    String before = text.getText().substring(0, text.getCaretPosition());
    return lastName(before.substring(before.lastIndexOf('\n') + 1));
  }

  @Override
  protected List<Completion> getCompletionsImpl(JTextComponent text) {
    String entered = getAlreadyEnteredText(text);
    String prefix = entered.startsWith("\"") ? entered.substring(1) : entered;
    if (prefix.equals(foundFor)) {
      return found.stream().map(name -> new BasicCompletion(this, inFormula(name)))
          .collect(Collectors.toList());
    }
    if (!prefix.isEmpty()) {
      workspace.read(() -> find(prefix), names -> {
        foundFor = prefix;
        found = names;
        if (!names.isEmpty() && text.isFocusOwner()) {
          completion.doCompletion();
        }
      });
    }
    return Collections.emptyList();
  }

  private List<String> find(String prefix) {
    List<String> names = new ArrayList<>();
    SearchRun run = workspace.outline.search(new Search(prefix), Details.NONE);
    long end = System.nanoTime() + MOST_NANOS;
    while (!run.isFinished() && names.size() < MOST && System.nanoTime() < end) {
      for (Member member : run.next()) {
        if (member.name().regionMatches(true, 0, prefix, 0, prefix.length())) {
          names.add(member.name());
        }
      }
    }
    return names.stream().distinct().sorted(Comparator.comparing(String::length)).limit(MOST)
        .collect(Collectors.toList());
  }
}
