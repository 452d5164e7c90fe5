#!/usr/bin/python3
"""Rewrites a model so that it computes the same in fewer passes over its pictures.

usage: simplify_model.py MODEL RESULT

The models of text recognition scale and shift what each convolution gives by constants, and spell the
activation "hard swish" as four operations, each of which reads and writes everything once. Here constants become
part of the weights of the convolution before or behind, and the activation is two operations. What a constant
shifts stays an operation of its own only where a convolution behind it pads with zeros.
"""
import sys

import numpy
import onnx
from onnx import helper, numpy_helper


class Graph:
    """The nodes of a model, and its constants by name."""

    def __init__(self, graph):
        self.graph = graph
        self.constants = {each.name: numpy_helper.to_array(each) for each in graph.initializer}
        for node in graph.node:
            if node.op_type == "Constant":
                self.constants[node.output[0]] = numpy_helper.to_array(node.attribute[0].t)
        self.nodes = [node for node in graph.node if node.op_type != "Constant"]
        self.outputs = {each.name for each in graph.output}
        self.count = 0

    def producer(self, name):
        return next((node for node in self.nodes if name in node.output), None)

    def consumers(self, name):
        return [node for node in self.nodes if name in node.input]

    def only_consumer(self, name):
        found = self.consumers(name)
        return found[0] if len(found) == 1 and name not in self.outputs else None

    def scalar(self, node, operation):
        """The other input of this operation with one number, and the number; None where it is no such."""
        if node is None or node.op_type != operation or len(node.input) != 2:
            return None
        for name, other in (node.input, reversed(node.input)):
            if name in self.constants and self.constants[name].size == 1 and other not in self.constants:
                return other, float(self.constants[name].reshape(-1)[0])
        return None

    def constant(self, values):
        self.count += 1
        name = f"simplified.{self.count}"
        self.constants[name] = numpy.asarray(values, dtype=numpy.float32)
        return name

    def replace_input(self, node, old, new):
        for index, name in enumerate(node.input):
            if name == old:
                node.input[index] = new

    def bypass(self, node, source):
        """Takes a node out; those behind it read `source`."""
        for consumer in self.consumers(node.output[0]):
            self.replace_input(consumer, node.output[0], source)
        self.nodes.remove(node)

    def write(self):
        used = {name for node in self.nodes for name in node.input}
        del self.graph.node[:]
        self.graph.node.extend(self.nodes)
        del self.graph.initializer[:]
        self.graph.initializer.extend(numpy_helper.from_array(values, name)
                                      for name, values in self.constants.items() if name in used)


def fold_into_convolution_before(graph):
    """Scales and shifts of what a convolution gives."""
    for node in list(graph.nodes):
        for operation in ("Mul", "Add"):
            found = graph.scalar(node, operation)
            if not found or graph.only_consumer(found[0]) is not node:
                continue
            source, number = found
            convolution = graph.producer(source)
            if convolution is None or convolution.op_type != "Conv":
                continue
            weights = graph.constants[convolution.input[1]]
            bias = (graph.constants[convolution.input[2]] if len(convolution.input) > 2
                    else numpy.zeros(weights.shape[0], numpy.float32))
            if operation == "Mul":
                weights, bias = weights * number, bias * number
            else:
                bias = bias + number
            inputs = [convolution.input[0], graph.constant(weights), graph.constant(bias)]
            del convolution.input[:]
            convolution.input.extend(inputs)
            graph.bypass(node, source)


def shorten_hard_swish(graph):
    """x * clip(x + 3, 0, 6) / 6 as x times its hard sigmoid."""
    for division in list(graph.nodes):
        found = graph.scalar(division, "Div")
        product = graph.producer(found[0]) if found and found[1] == 6 else None
        if product is None or product.op_type != "Mul":
            continue
        clips = [graph.producer(name) for name in product.input]
        clip = next((each for each in clips if each is not None and each.op_type == "Clip"), None)
        shifted = graph.scalar(graph.producer(clip.input[0]), "Add") if clip is not None else None
        if not shifted or shifted[1] != 3 or shifted[0] not in product.input:
            continue
        source = shifted[0]
        sigmoid = helper.make_node("HardSigmoid", [source], [clip.output[0]], alpha=1 / 6, beta=0.5)
        graph.nodes.remove(graph.producer(clip.input[0]))
        graph.nodes[graph.nodes.index(clip)] = sigmoid
        graph.bypass(division, product.output[0])


def fold_into_convolution_behind(graph):
    """Scales and shifts of what a convolution takes."""
    for scaling in list(graph.nodes):
        found = graph.scalar(scaling, "Mul")
        adding = graph.only_consumer(scaling.output[0]) if found else None
        shift = graph.scalar(adding, "Add")
        convolution = graph.only_consumer(adding.output[0]) if shift else None
        if convolution is None or convolution.op_type != "Conv":
            continue
        (source, scale), (_, offset) = found, shift
        weights = graph.constants[convolution.input[1]]
        pads = next((each.ints for each in convolution.attribute if each.name == "pads"), [0])
        graph.replace_input(convolution, convolution.input[1], graph.constant(weights * scale))
        if any(pads):
            graph.replace_input(adding, scaling.output[0], source)
            number = next(name for name in adding.input if name in graph.constants)
            graph.replace_input(adding, number, graph.constant([offset / scale]))
            graph.nodes.remove(scaling)
        else:
            bias = graph.constants[convolution.input[2]] + offset * weights.sum(axis=(1, 2, 3))
            graph.replace_input(convolution, convolution.input[2], graph.constant(bias))
            graph.bypass(adding, scaling.output[0])
            graph.bypass(scaling, source)


def main():
    model = onnx.load(sys.argv[1])
    graph = Graph(model.graph)
    fold_into_convolution_before(graph)
    shorten_hard_swish(graph)
    fold_into_convolution_behind(graph)
    graph.write()
    onnx.checker.check_model(model)
    onnx.save(model, sys.argv[2])


if __name__ == "__main__":
    main()
