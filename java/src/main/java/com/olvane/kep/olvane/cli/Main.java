package com.olvane.kep.olvane.cli;

import com.olvane.kep.olvane.api.jni.NativeLibrary;
import com.olvane.kep.olvane.cli.demo.DemoCommand;
import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.OutputStreamWriter;
import java.io.PrintWriter;
import java.nio.charset.StandardCharsets;
import picocli.CommandLine;

/**
 * Runs the demonstration. It ends with 0 for success, 1 for a failure and 2 for wrong usage; results
 * go to standard output, messages to standard error, both in UTF-8.
 */
public final class Main {
  private Main() {}

  /**
   * Runs the command and ends the virtual machine with its exit code.
   *
   * @param arguments the command line
   */
  public static void main(String[] arguments) {
    CommandLine command = new CommandLine(new DemoCommand());
    command.setCaseInsensitiveEnumValuesAllowed(true);
    command.getCommandSpec().version("kepotl " + NativeLibrary.version());
    command.setOut(writer(FileDescriptor.out));
    command.setErr(writer(FileDescriptor.err));
    command.setExecutionExceptionHandler(
        (exception, failed, parsed) -> {
          failed.getErr().println(failed.getColorScheme().errorText(message(exception)));
          failed.getErr().flush();
          return failed.getCommandSpec().exitCodeOnExecutionException();
        });
    int code;
    try {
      code = command.execute(arguments);
    } catch (LinkageError e) {
      // The native library could not be loaded; the message says what was tried.
      command.getErr().println(message(e));
      code = command.getCommandSpec().exitCodeOnExecutionException();
    }
    command.getOut().flush();
    command.getErr().flush();
    System.exit(code);
  }

  private static PrintWriter writer(FileDescriptor descriptor) {
    return new PrintWriter(
        new OutputStreamWriter(new FileOutputStream(descriptor), StandardCharsets.UTF_8));
  }

  private static String message(Throwable exception) {
    if (exception instanceof ExceptionInInitializerError && exception.getCause() != null) {
      return message(exception.getCause());
    }
    String text = exception.getMessage();
    return text == null ? exception.toString() : text;
  }
}
