// The page's side of the worker: questions and their answers, and a new worker where one was stopped.

import { Unreadable } from "./chosen_files";
import type { ChosenFile } from "./chosen_files";
import type { Operation, PhaseMessage, Reply } from "./protocol";

export class Cancelled extends Error {}
/** The worker could not answer at all. */
export class Failed extends Error {}

interface Waiting { resolve: (answer: unknown) => void; reject: (problem: Error) => void; }

export interface Client {
  worker: Worker;
  waiting: Map<number, Waiting>;
  nextId: number;
  whenPhaseBegins: (phase: string) => void;
}

function startWorker(): Worker {
  const source = document.getElementById("worker-source")?.textContent ?? "";
  const address = URL.createObjectURL(new Blob([source], { type: "text/javascript" }));
  const worker = new Worker(address);
  return worker;
}

function listen(client: Client): void {
  const { worker } = client;
  worker.onmessage = (event: MessageEvent<Reply | PhaseMessage>) => {
    if ("phase" in event.data) return client.whenPhaseBegins(event.data.phase);
    const { id, answer, failure, trouble } = event.data;
    const waiting = client.waiting.get(id);
    client.waiting.delete(id);
    if (trouble !== undefined) waiting?.reject(new Unreadable(trouble.kind, trouble.name));
    else if (failure === undefined) waiting?.resolve(answer);
    else waiting?.reject(new Failed(failure));
  };
  worker.onerror = (event) => failAll(client, new Failed(event.message || "the worker could not be started"));
}

function failAll(client: Client, problem: Error): void {
  const all = [...client.waiting.values()];
  client.waiting.clear();
  for (const waiting of all) waiting.reject(problem);
}

export function createClient(whenPhaseBegins: (phase: string) => void): Client {
  const client = { worker: startWorker(), waiting: new Map(), nextId: 1, whenPhaseBegins };
  listen(client);
  return client;
}

export function ask<Answer>(client: Client, operation: Operation, values: (string | number)[] = [],
                            files?: ChosenFile[]): Promise<Answer> {
  return new Promise((resolve, reject) => {
    const id = client.nextId++;
    client.waiting.set(id, { resolve: resolve as (answer: unknown) => void, reject });
    client.worker.postMessage({ id, operation, values, files });
  });
}

/** Ends a client that is needed no more. */
export function closeClient(client: Client): void {
  client.worker.terminate();
  failAll(client, new Cancelled());
}

/** Stops whatever is being done, and everything that the worker knows with it. */
export function stopWork(client: Client): void {
  client.worker.terminate();
  client.worker = startWorker();
  listen(client);
  failAll(client, new Cancelled());
}
