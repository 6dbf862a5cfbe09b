package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Optional;
import java.util.stream.Collectors;

/**
 * An alias table file, read without touching the outline: a header line with the name of the
 * table, a line per alias with member and alias, quoted or as two words, an end line.
 */
final class AliasFile {
  private static final String HEADER = "$ALT_NAME";
  private static final String END = "$END";

  /** What becomes of a line. */
  enum Outcome {
    /** The alias is set. */
    SET("will be set"),
    /** The member has this alias already. */
    SAME("is so already"),
    /** There is no such member. */
    UNKNOWN("no such member"),
    /** The alias does not fit. */
    TOO_LONG("over " + MemberRows.ALIAS_LIMIT + " bytes"),
    /** It has not two fields. */
    UNREADABLE("unreadable");

    final String words;

    Outcome(String words) {
      this.words = words;
    }

    /** Whether the alias is in the table afterwards. */
    boolean applies() {
      return this == SET || this == SAME;
    }
  }

  /** A line of the file. */
  static final class Line {
    final int number;
    final String member;
    final String alias;
    Outcome outcome = Outcome.UNREADABLE;

    Line(int number, String member, String alias) {
      this.number = number;
      this.member = member;
      this.alias = alias;
    }
  }

  /** The table that the file names; empty where it names none. */
  final String table;
  final List<Line> lines = new ArrayList<>();

  private AliasFile(String table) {
    this.table = table;
  }

  /** Reads a file. */
  static AliasFile read(Path path) throws IOException {
    // Not readAllLines, which gives up at a byte that is no UTF-8.
    String[] texts =
        new String(Files.readAllBytes(path), StandardCharsets.UTF_8).split("\r\n|\r|\n");
    AliasFile file = new AliasFile(tableName(texts[0].trim()));
    for (int i = 1; i < texts.length && !texts[i].contains(END); i++) {
      if (!texts[i].trim().isEmpty()) {
        file.lines.add(parse(i + 1, texts[i]));
      }
    }
    return file;
  }

  private static List<String> pieces(String text, String between) {
    return Arrays.stream(text.split(between)).map(String::trim)
        .filter(piece -> !piece.isEmpty()).collect(Collectors.toList());
  }

  private static String tableName(String line) {
    List<String> pieces = line.contains(HEADER)
        ? pieces(line.substring(HEADER.length()), "'") : Collections.<String>emptyList();
    return pieces.isEmpty() ? "" : pieces.get(0);
  }

  private static Line parse(int number, String text) {
    // A quoted line may begin with its quote, and has blanks between its fields.
    boolean quoted = text.indexOf('"') >= 0;
    List<String> fields = pieces(text, quoted ? "\"+" : "\\s+");
    boolean blankFirst = quoted && text.charAt(0) != '"' && text.trim().charAt(0) == '"';
    return fields.size() < 2 || blankFirst
        ? new Line(number, text.trim(), "") : new Line(number, fields.get(0), fields.get(1));
  }

  /** Finds out what would become of each line in a table of the outline, which may be new. */
  void judge(Outline outline, String into) {
    boolean isNew = !outline.aliasTables().names().contains(into);
    Details details = isNew ? Details.NONE : Details.NONE.aliases(into);
    for (Line line : lines) {
      if (line.alias.isEmpty()) {
        continue;
      }
      Optional<Member> found = outline.find(line.member, details);
      if (!found.isPresent()) {
        line.outcome = Outcome.UNKNOWN;
      } else if (HoldingBean.encodedLength(line.alias) > MemberRows.ALIAS_LIMIT) {
        line.outcome = Outcome.TOO_LONG;
      } else {
        boolean same = !isNew && found.get().alias(into).equals(line.alias);
        line.outcome = same ? Outcome.SAME : Outcome.SET;
      }
    }
  }

  /** The edit that sets what applies. */
  Edit edit(String into) {
    Map<String, String> aliases = new LinkedHashMap<>();
    lines.stream().filter(line -> line.outcome.applies())
        .forEach(line -> aliases.put(line.member, line.alias));
    return AliasTableEdits.fill(into, aliases);
  }
}
