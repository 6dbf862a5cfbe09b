/** Requests that native methods read and advance, and small results. */
package com.olvane.kep.olvane.api.outline;
