package com.olvane.kep.olvane.api.jni;

import java.io.IOException;
import java.nio.channels.FileChannel;
import java.nio.channels.OverlappingFileLockException;
import java.nio.file.DirectoryStream;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.StandardOpenOption;
import java.util.HashMap;
import java.util.Map;

/**
 * Who uses a folder of extracted libraries: every process that does holds a shared lock on a file
 * in it until it ends, however it ends. Whoever gets the lock for itself may remove the folder.
 */
final class FolderUse {
  private static final String FILE = "used";

  /** Channels are never closed, as closing one would give up every lock of the process on it. */
  private static final Map<Path, FileChannel> HELD = new HashMap<>();

  private FolderUse() {}

  /**
   * Marks a folder as used until the process ends.
   *
   * @param folder a folder of extracted libraries
   * @return false if somebody has removed it meanwhile
   * @throws IOException if it cannot be marked
   */
  static synchronized boolean hold(Path folder) throws IOException {
    Path file = folder.resolve(FILE);
    if (HELD.containsKey(folder) && Files.exists(file)) {
      return true;
    }
    if (!Files.isDirectory(folder, LinkOption.NOFOLLOW_LINKS)) {
      return false;
    }
    FileChannel channel = open(file);
    HELD.put(folder, channel);
    try {
      channel.lock(0, Long.MAX_VALUE, true);
    } catch (OverlappingFileLockException e) {
      // Another class loader of this virtual machine holds it.
    }
    return Files.exists(file);
  }

  /**
   * Removes the folders that nobody uses. What can't be removed stays for the next time.
   *
   * @param base the folder in which they are
   * @param names a pattern for their names
   * @param except one that stays
   */
  static synchronized void removeUnused(Path base, String names, Path except) {
    try (DirectoryStream<Path> folders = Files.newDirectoryStream(base, names)) {
      for (Path folder : folders) {
        if (!folder.equals(except) && Files.isDirectory(folder, LinkOption.NOFOLLOW_LINKS)) {
          removeIfUnused(folder);
        }
      }
    } catch (IOException | RuntimeException e) {
      // Another user's folder, or one that somebody else removes.
    }
  }

  private static void removeIfUnused(Path folder) throws IOException {
    if (HELD.containsKey(folder)) {
      return;
    }
    FileChannel channel = open(folder.resolve(FILE));
    try {
      if (channel.tryLock() != null) {
        try (DirectoryStream<Path> files = Files.newDirectoryStream(folder)) {
          for (Path file : files) {
            Files.delete(file);
          }
        }
        Files.delete(folder);
      }
    } catch (OverlappingFileLockException e) {
      HELD.put(folder, channel);
      return;
    }
    channel.close();
  }

  private static FileChannel open(Path file) throws IOException {
    return FileChannel.open(
        file,
        StandardOpenOption.CREATE,
        StandardOpenOption.READ,
        StandardOpenOption.WRITE,
        LinkOption.NOFOLLOW_LINKS);
  }
}
