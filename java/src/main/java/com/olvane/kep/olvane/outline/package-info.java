/**
 * Outlines for Java programs: opening, browsing, searching, editing and saving them, with
 * exceptions in place of statuses.
 *
 * <p>A {@link com.olvane.kep.olvane.outline.Store} is a login to a folder of databases; from it
 * come {@link com.olvane.kep.olvane.outline.Outline}s, and from those immutable {@link
 * com.olvane.kep.olvane.outline.Member}s. Reading and making many members at once takes the fast
 * lane of {@link com.olvane.kep.olvane.api.jni.OutlineBulk}, everything else the native methods.
 *
 * <p><b>Null</b> is neither taken nor given, unless a method says so: a text that is not there is
 * empty.
 *
 * <p><b>Failures</b> of the outline API are thrown as {@link
 * com.olvane.kep.olvane.outline.OutlineException}. Misuse by the program, such as a closed outline,
 * is an {@link java.lang.IllegalStateException} or {@link java.lang.IllegalArgumentException}.
 *
 * <p><b>Threads.</b> All classes that are not plain values may be used by several threads. An
 * outline carries out one call at a time.
 */
package com.olvane.kep.olvane.outline;
