package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.api.jni.NativeLibrary;
import com.olvane.kep.olvane.outline.Store;
import java.awt.AWTError;
import java.awt.GraphicsEnvironment;
import java.awt.HeadlessException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.concurrent.Callable;
import javax.swing.SwingUtilities;
import picocli.CommandLine;
import picocli.CommandLine.Command;
import picocli.CommandLine.Option;
import picocli.CommandLine.Parameters;

/** The program: the outline editor. */
@Command(
    name = "outline-editor",
    description = "Edits outlines in a window.",
    mixinStandardHelpOptions = true)
public final class EditorMain implements Callable<Integer> {
  @Parameters(index = "0", arity = "0..1", paramLabel = "APP",
      description = "The application.")
  private String application;

  @Parameters(index = "1", arity = "0..1", paramLabel = "DB",
      description = "The database. Without these two there is a list to choose from.")
  private String database;

  @Option(names = "--store", paramLabel = "STORE", defaultValue = "${env:OUTLINE_STORE:-outlines}",
      description = "Folder that holds the databases, or address on a PostgreSQL server (default:"
          + " $OUTLINE_STORE, else outlines).")
  private String store;

  @Option(names = "--user", paramLabel = "NAME", defaultValue = "${sys:user.name}",
      description = "Name to log in with (default: ${DEFAULT-VALUE}).")
  private String user;

  private EditorMain() {}

  /**
   * Starts the editor.
   *
   * @param arguments the command line
   */
  public static void main(String[] arguments) {
    Theme.prepare();
    CommandLine command = new CommandLine(new EditorMain());
    command.getCommandSpec().version("kepotl " + NativeLibrary.version());
    command.setExecutionExceptionHandler((failure, failed, parsed) -> {
      failed.getErr().println(Ask.sentence(failure));
      if (hasDisplay()) {
        // Whoever started it from a menu does not see what is printed.
        Ask.fromElsewhere(null, Ask.sentence(failure), "OK");
      }
      return 1;
    });
    int code = command.execute(arguments);
    if (code != 0 || command.isUsageHelpRequested() || command.isVersionHelpRequested()) {
      System.exit(code);
    }
  }

  @Override
  public Integer call() throws Exception {
    if (!hasDisplay()) {
      String display = System.getenv("DISPLAY");
      System.err.println("There is no display " + (display == null ? "" : display + " ")
          + "to open a window on. Set DISPLAY to one" + (display == null ? "" : " that is there")
          + ", or use the command outline, which needs none.");
      return 1;
    }
    // For what is asked before there is an editor.
    SwingUtilities.invokeLater(() -> Theme.install(Palette.LIGHT));
    if ((application == null) != (database == null)) {
      System.err.println("Name both an application and a database, or neither.");
      return 2;
    }
    boolean isFolder = !store.matches("postgres(ql)?://.*");
    Path folder = isFolder ? Paths.get(store).toAbsolutePath().normalize() : null;
    if (isFolder && !Files.isDirectory(folder)) {
      String none = "There is no store in the folder " + folder + ".";
      if (application != null) {
        throw new IllegalArgumentException(none + " Name another with --store or OUTLINE_STORE.");
      }
      if (Ask.fromElsewhere(null, none + " Make one there?", "Make a Store", "Cancel") != 0) {
        return 0;
      }
    }
    Store opened = Store.open(store, user);
    Runtime.getRuntime().addShutdownHook(new Thread(opened::close));
    SwingUtilities.invokeLater(() -> {
      Editor editor = new Editor(opened);
      // An address may hold a password.
      editor.where = isFolder ? folder.toString()
          : store.replaceFirst("//[^/]*@", "//").replaceFirst("[?].*", "");
      if (application == null) {
        editor.choose();
      } else {
        editor.open(application, database, null, shown -> {});
      }
    });
    return 0;
  }

  private static boolean hasDisplay() {
    try {
      GraphicsEnvironment.getLocalGraphicsEnvironment().getDefaultScreenDevice();
      return true;
    } catch (AWTError | HeadlessException e) {
      return false;
    }
  }
}
